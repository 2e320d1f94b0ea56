#pragma once

#include <functional>

#include <QString>

// The store's own failure texts go through the message catalogue, which the language
// layer above keeps. Each holder of a catalogue registers its lookup for as long as it
// lives; the latest one still registered answers. With none, a text is its default.
using StoreTextLookup
    = std::function<QString(const QString& DefaultText, int Seq, int ID, const QString& ModuleName)>;

void RegisterStoreTextLookup(const void* owner, StoreTextLookup lookup);
void UnregisterStoreTextLookup(const void* owner);

// The text of key (ADOUtil, id, seq) in the applied language.
QString StoreText(const char* defaultText, int seq, int id);

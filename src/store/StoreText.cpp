#include "StoreText.h"

#include <utility>
#include <vector>

namespace {

std::vector<std::pair<const void*, StoreTextLookup>>& Lookups()
{
    static std::vector<std::pair<const void*, StoreTextLookup>> lookups;
    return lookups;
}

} // namespace

void RegisterStoreTextLookup(const void* owner, StoreTextLookup lookup)
{
    UnregisterStoreTextLookup(owner);
    Lookups().emplace_back(owner, std::move(lookup));
}

void UnregisterStoreTextLookup(const void* owner)
{
    std::erase_if(Lookups(), [owner](const auto& entry) { return entry.first == owner; });
}

QString StoreText(const char* defaultText, int seq, int id)
{
    const QString text = QString::fromUtf8(defaultText);
    if (Lookups().empty())
        return text;
    return Lookups().back().second(text, seq, id, QStringLiteral("ADOUtil"));
}

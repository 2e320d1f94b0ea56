#pragma once

#include <QByteArray>
#include <QString>

// A listener on the link: told of each request as it goes out and of what came back for it,
// with the protocol's verdict, so that a failed download can be read afterwards.
class LinkTrace
{
public:
    virtual ~LinkTrace() = default;
    // A request as sent, its CRC included.
    virtual void sent(const QByteArray& frame) = 0;
    // The bytes received for the last request (fewer than asked for after a silence, none at
    // all when nothing came) and the verdict on them: "ok", or why the answer was refused.
    virtual void received(const QByteArray& bytes, const QString& verdict) = 0;
};

#pragma once

#include <stdexcept>

#include <QString>

// A failure that is deliberately not handled: a table operation on a closed recordset, a
// subscript out of range, a conversion that overflows, an object that is not there. It also
// carries the deliberate stops, which name their box's text, title and flags. It travels up to the top of the
// event loop, where one box shows it and the process ends with status 3. Nothing else catches it, and nothing
// is saved on that path.
class UnhandledError : public std::runtime_error
{
public:
    explicit UnhandledError(
        const QString& text, const QString& title = QStringLiteral("VORNA"), int flags = 16)
        : std::runtime_error(text.toStdString())
        , m_text(text)
        , m_title(title)
        , m_flags(flags)
    { }
    const QString& text() const { return m_text; }
    const QString& title() const { return m_title; }
    int flags() const { return m_flags; }

private:
    QString m_text;
    QString m_title;
    int m_flags;
};

// The exit status of a process ended by an unhandled error.
inline constexpr int UnhandledErrorExitStatus = 3;

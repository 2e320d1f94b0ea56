#include "VBUtil.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "UnhandledError.h"

namespace {

int LastSlash(const QString& Path)
{
    return std::max(LastInStr(Path, QStringLiteral("\\")), LastInStr(Path, QStringLiteral("/")));
}

// Val ignores blanks, tabs and line feeds anywhere in the number, as the platform's does.
bool IsValBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n';
}

// Parses a whole text as a number (surrounding blanks allowed); nothing when it is not one.
std::optional<double> ParseNumber(const QString& Text)
{
    const QString t = Text.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    bool ok = false;
    const double d = t.toDouble(&ok);
    if (!ok || std::isinf(d) || std::isnan(d))
        return std::nullopt;
    return d;
}

double ToNumber(const QVariant& Value)
{
    if (!Value.isValid() || Value.isNull())
        throw UnhandledError(QStringLiteral("Invalid use of Null"));
    if (IsNumericValue(Value))
        return Value.toDouble();
    switch (Value.metaType().id()) {
    case QMetaType::Bool:
        return Value.toBool() ? -1.0 : 0.0;
    case QMetaType::QString:
    case QMetaType::QByteArray:
        if (auto d = ParseNumber(Value.toString()))
            return *d;
        break;
    default:
        break;
    }
    throw UnhandledError(QStringLiteral("Type mismatch"));
}

// Rounds half to even, then range-checks; a value out of range is an overflow.
qint64 RoundInRange(double d, qint64 low, qint64 high)
{
    const double r = std::nearbyint(d);
    if (std::isnan(r) || r < double(low) || r > double(high))
        throw UnhandledError(QStringLiteral("Overflow"));
    return qint64(r);
}

} // namespace

QString GetFname(const QString& Path, int Mode)
{
    const int Dot = LastInStr(Path, QStringLiteral("."));
    const int Slash = LastSlash(Path);
    const int Len = int(Path.length());
    switch (Mode) {
    case 0:
        if (Dot - Slash > 1)
            return Path.mid(Slash, Dot - Slash - 1);
        if (Dot == 0 && Slash == 0)
            return Path;
        return QString();
    case 1:
        if (Slash >= 1)
            return Path.left(Slash);
        return QString();
    case 2:
        if (Len > Slash + 1)
            return Path.mid(Slash);
        if (Dot == 0 && Slash == 0)
            return Path;
        return QString();
    case 3:
        if (Len > Dot + 1)
            return Path.mid(Dot);
        return QString();
    default:
        throw UnhandledError(QStringLiteral("Error! in getfname function ( vbutil)\rProgramm will stop!"),
            QStringLiteral("GetFname - VBUtil"), 17);
    }
}

int LastInStr(const QString& Text, const QString& Find)
{
    if (Find.isEmpty())
        return int(Text.length());
    return int(Text.lastIndexOf(Find)) + 1;
}

QString NullToEmpty(const QVariant& Value)
{
    if (!Value.isValid() || Value.isNull())
        return QString();
    switch (Value.metaType().id()) {
    case QMetaType::Bool:
        return Value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::QDate:
        return Value.toDate().toString(QStringLiteral("yyyy-MM-dd"));
    case QMetaType::QDateTime:
        return Value.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    case QMetaType::Double:
    case QMetaType::Float:
        return QString::number(Value.toDouble(), 'g', 15);
    default:
        return Value.toString();
    }
}

double Val(const QString& Text)
{
    QString digits;
    int i = 0;
    const int n = int(Text.length());
    auto skipBlanks = [&] {
        while (i < n && IsValBlank(Text[i]))
            ++i;
    };
    skipBlanks();
    if (i < n && (Text[i] == u'-' || Text[i] == u'+'))
        digits += Text[i++];
    bool seenDigit = false;
    bool seenPoint = false;
    for (; i < n; ++i) {
        const QChar c = Text[i];
        if (IsValBlank(c))
            continue;
        if (c.isDigit() && c.unicode() < 128) {
            digits += c;
            seenDigit = true;
        } else if (c == u'.' && !seenPoint) {
            digits += c;
            seenPoint = true;
        } else {
            break;
        }
    }
    if (!seenDigit)
        return 0.0;
    // An exponent counts only when at least one digit follows it.
    if (i < n && (Text[i] == u'e' || Text[i] == u'E' || Text[i] == u'd' || Text[i] == u'D')) {
        QString exponent = QStringLiteral("e");
        int j = i + 1;
        while (j < n && IsValBlank(Text[j]))
            ++j;
        if (j < n && (Text[j] == u'-' || Text[j] == u'+'))
            exponent += Text[j++];
        bool expDigit = false;
        for (; j < n; ++j) {
            const QChar c = Text[j];
            if (IsValBlank(c))
                continue;
            if (!c.isDigit() || c.unicode() >= 128)
                break;
            exponent += c;
            expDigit = true;
        }
        if (expDigit)
            digits += exponent;
    }
    bool ok = false;
    const double d = digits.toDouble(&ok);
    if (!ok || std::isinf(d))
        throw UnhandledError(QStringLiteral("Overflow"));
    return d;
}

qint16 CInt(const QVariant& Value)
{
    return qint16(RoundInRange(ToNumber(Value), -32768, 32767));
}

quint8 CByte(const QVariant& Value)
{
    return quint8(RoundInRange(ToNumber(Value), 0, 255));
}

qint16 ValToInt16(const QString& Text)
{
    return CInt(Val(Text));
}

qint64 DateDiffSeconds(const QDateTime& from, const QDateTime& to)
{
    auto wholeSeconds = [](const QDateTime& t) {
        const qint64 ms = t.toMSecsSinceEpoch();
        return ms >= 0 ? ms / 1000 : -((-ms + 999) / 1000);
    };
    return wholeSeconds(to) - wholeSeconds(from);
}

bool IsNumeric(const QString& Text)
{
    const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    qsizetype i = 0;
    qsizetype end = Text.size();
    while (i < end && isBlank(Text.at(i)))
        ++i;
    while (end > i && isBlank(Text.at(end - 1)))
        --end;
    // "(5)" is the accounting form of -5, and takes no sign of its own.
    if (end - i >= 2 && Text.at(i) == u'(' && Text.at(end - 1) == u')') {
        ++i;
        --end;
    } else if (i < end && (Text.at(i) == u'+' || Text.at(i) == u'-')) {
        ++i;
    }
    int digits = 0;
    for (; i < end && (isDigit(Text.at(i)) || (digits > 0 && Text.at(i) == u',')); ++i)
        digits += isDigit(Text.at(i)) ? 1 : 0;
    if (i < end && Text.at(i) == u'.')
        for (++i; i < end && isDigit(Text.at(i)); ++i)
            ++digits;
    if (digits == 0)
        return false;
    if (i < end && QStringLiteral("EeDd").contains(Text.at(i))) {
        ++i;
        if (i < end && (Text.at(i) == u'+' || Text.at(i) == u'-'))
            ++i;
        const qsizetype exponentStart = i;
        while (i < end && isDigit(Text.at(i)))
            ++i;
        if (i == exponentStart)
            return false;
    }
    return i == end;
}

bool IsNumericValue(const QVariant& Value)
{
    switch (Value.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

QString Trim(const QString& Text)
{
    qsizetype start = 0;
    qsizetype end = Text.size();
    while (start < end && Text[start] == u' ')
        ++start;
    while (end > start && Text[end - 1] == u' ')
        --end;
    return Text.mid(start, end - start);
}

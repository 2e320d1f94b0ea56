#include "ScriptedPlatform.h"

#include <gtest/gtest.h>

namespace {

QString kindName(ScriptedPlatform::Event::Kind kind)
{
    static const char* const names[] = {"box", "open dialog", "save dialog", "modal form"};
    return QString::fromLatin1(kind <= ScriptedPlatform::Event::Modal ? names[kind] : "event");
}

// A handle on the platform's one scripted line.
class SerialLineHandle : public SerialLine
{
public:
    explicit SerialLineHandle(SerialLine& line)
        : m_line(line)
    { }
    bool open(const QString& path, const SerialSettings& settings) override
    {
        return m_line.open(path, settings);
    }
    bool isOpen() const override { return m_line.isOpen(); }
    void close() override { m_line.close(); }
    void write(const QByteArray& bytes) override { m_line.write(bytes); }
    qint64 bytesAvailable() override { return m_line.bytesAvailable(); }
    QByteArray read(qint64 maxBytes) override { return m_line.read(maxBytes); }
    bool waitForBytes(int msecs) override { return m_line.waitForBytes(msecs); }
    void discardInput() override { m_line.discardInput(); }
    OpenFailure openFailure() const override { return m_line.openFailure(); }
    QString errorString() const override { return m_line.errorString(); }

private:
    SerialLine& m_line;
};

} // namespace

ScriptedPlatform::ScriptedPlatform()
    : clock(QDate(2026, 11, 22), QTime(9, 30, 0))
{ }

ScriptedPlatform::~ScriptedPlatform()
{
    for (const auto& e : m_expected)
        ADD_FAILURE() << "expected but never shown: " << describe(e).toStdString();
}

QString ScriptedPlatform::describe(const Expectation& e)
{
    return kindName(e.kind) + QStringLiteral(" [") + e.title + QStringLiteral("] ") + e.text;
}

void ScriptedPlatform::expectBoxOf(
    int flags, const QString& text, const QString& title, int answer, bool anyText)
{
    EXPECT_TRUE(MsgBox::HasButton(flags, answer))
        << "scripted answer " << answer << " is not a button of a box with flags " << flags;
    m_expected.push_back({Event::Box, flags, text, title, answer, anyText, {}, {}, {}});
}

void ScriptedPlatform::expectModal(const QString& formName, std::function<void(FormModel&)> action)
{
    m_expected.push_back({Event::Modal, 0, formName, {}, 0, false, {}, {}, std::move(action)});
}

std::vector<QString> ScriptedPlatform::boxTexts() const
{
    std::vector<QString> texts;
    for (const auto& e : events)
        if (e.kind == Event::Box)
            texts.push_back(e.text);
    return texts;
}

std::optional<ScriptedPlatform::Expectation> ScriptedPlatform::take(Event::Kind kind, const QString& shown)
{
    // A modal form must be the one expected; its name is the text of the expectation.
    if (m_expected.empty() || m_expected.front().kind != kind
        || (kind == Event::Modal && m_expected.front().text != shown)) {
        ADD_FAILURE() << "unexpected " << kindName(kind).toStdString() << " " << shown.toStdString()
                      << (m_expected.empty()
                                 ? std::string()
                                 : "\n  while expecting " + describe(m_expected.front()).toStdString());
        return std::nullopt;
    }
    Expectation e = std::move(m_expected.front());
    m_expected.pop_front();
    return e;
}

int ScriptedPlatform::msgBox(const QString& text, int flags, const QString& title)
{
    record({Event::Box, text, title, flags, {}});
    const auto e = take(Event::Box, QStringLiteral("[%1] flags %2: %3").arg(title).arg(flags).arg(text));
    if (!e)
        return (flags & MsgBox::ButtonMask) == MsgBox::OKOnly ? MsgBox::OK : MsgBox::Cancel;
    EXPECT_EQ(e->flags, flags) << "box: " << text.toStdString();
    if (!e->anyText) {
        EXPECT_EQ(e->text.toStdString(), text.toStdString());
    }
    EXPECT_EQ(e->title.toStdString(), title.toStdString());
    EXPECT_TRUE(MsgBox::HasButton(flags, e->answer))
        << "answer " << e->answer << " is not a button of the box shown (flags " << flags << ")";
    return e->answer;
}

std::optional<QString> ScriptedPlatform::fileDialog(Event::Kind kind, const FileDialogOptions& options)
{
    record({kind, {}, options.DialogTitle, 0, options});
    const auto e = take(kind, QStringLiteral("[%1]").arg(options.DialogTitle));
    if (e && e->check)
        e->check(options);
    return e ? e->path : std::nullopt;
}

void ScriptedPlatform::runModal(FormModel& form)
{
    record({Event::Modal, form.formName(), {}, 0, {}});
    const auto e = take(Event::Modal, form.formName());
    if (!e || !e->action)
        return;
    e->action(form);
    // In the window a form that stays shown never returns from its modal loop.
    EXPECT_FALSE(form.Visible) << "the script left " << form.formName().toStdString() << " shown";
}

void ScriptedPlatform::record(Event event)
{
    events.push_back(std::move(event));
    if (onEvent)
        onEvent(events.back());
}

QDateTime ScriptedPlatform::now()
{
    QDateTime t = clock;
    clock = clock.addMSecs(autoAdvanceMs);
    return t;
}

QString ScriptedPlatform::getSetting(
    const QString&, const QString& section, const QString& key, const QString& defaultValue)
{
    auto it = settings.find(section + QLatin1Char('/') + key);
    return it == settings.end() ? defaultValue : it->second;
}

void ScriptedPlatform::saveSetting(
    const QString&, const QString& section, const QString& key, const QString& value)
{
    settings[section + QLatin1Char('/') + key] = value;
}

void ScriptedPlatform::endProcess(int status)
{
    record({Event::EndProcess, {}, {}, status, {}});
    throw ProcessEnded {status};
}

std::unique_ptr<SerialLine> ScriptedPlatform::createSerialLine()
{
    if (makeSerialLine)
        return makeSerialLine();
    return std::make_unique<SerialLineHandle>(serial);
}

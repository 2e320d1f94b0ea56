#include "FormModel.h"

#include <QRegularExpression>

#include "UnhandledError.h"

Control::Control(FormModel& form, const char* name)
    : Name(QString::fromLatin1(name))
{
    form.registerControl(*this);
}

QString* Control::textProperty(const QString&, const QString&)
{
    return nullptr;
}

QString* Label::textProperty(const QString& part, const QString& property)
{
    return part.isEmpty() && property == QLatin1String("Caption") ? &Caption : nullptr;
}

QString* TextBox::textProperty(const QString& part, const QString& property)
{
    return part.isEmpty() && property == QLatin1String("Text") ? &Text : nullptr;
}

void ComboBox::Clear()
{
    List.clear();
    ItemData.clear();
    ListIndex = -1;
    Text.clear();
}

void ComboBox::SelectRow(int index)
{
    ListIndex = index >= 0 && index < ListCount() ? index : -1;
    Text = ListIndex >= 0 ? List[ListIndex] : QString();
}

bool ComboBox::OfferRowsOr(const QString& none)
{
    Enabled = ListCount() > 0;
    if (!Enabled)
        AddItem(none);
    SelectRow(0);
    return Enabled;
}

void ComboBox::SelectText(const QString& text)
{
    for (int i = 0; i < ListCount(); ++i)
        if (List[i] == text)
            return SelectRow(i);
    throw UnhandledError(QStringLiteral("'Text' property is read-only"));
}

void ComboBox::SetText(const QString& text)
{
    ListIndex = -1;
    for (int i = 0; i < ListCount() && ListIndex < 0; ++i)
        if (List[i] == text)
            ListIndex = i;
    Text = text;
}

void ComboBox::AddItem(const QString& text, const QVariant& data)
{
    List.push_back(text);
    ItemData.push_back(data);
}

QVariant ComboBox::selectedData() const
{
    return ListIndex >= 0 && ListIndex < ListCount() ? ItemData[ListIndex] : QVariant();
}

QString* ComboBox::textProperty(const QString& part, const QString& property)
{
    return part.isEmpty() && property == QLatin1String("Text") ? &Text : nullptr;
}

namespace {

// The number of an indexed name such as "Panels(2)" or "TabCaption(0)", or -1.
int indexOf(const QString& name, QLatin1String prefix)
{
    static const QRegularExpression indexed(QStringLiteral("^(\\w+)\\((\\d+)\\)$"));
    const auto m = indexed.match(name);
    return m.hasMatch() && m.captured(1) == prefix ? m.captured(2).toInt() : -1;
}

} // namespace

QString* StatusBar::textProperty(const QString& part, const QString& property)
{
    const int n = indexOf(part, QLatin1String("Panels"));
    if (n < 1 || n > static_cast<int>(Panels.size()) || property != QLatin1String("Text"))
        return nullptr;
    return &Panels[n - 1].Text;
}

QString* TabStrip::textProperty(const QString& part, const QString& property)
{
    if (!part.isEmpty())
        return nullptr;
    if (property == QLatin1String("Caption"))
        return Tab < static_cast<int>(TabCaptions.size()) ? &TabCaptions[Tab] : nullptr;
    const int n = indexOf(property, QLatin1String("TabCaption"));
    return n >= 0 && n < static_cast<int>(TabCaptions.size()) ? &TabCaptions[n] : nullptr;
}

QString* Menu::textProperty(const QString& part, const QString& property)
{
    return part.isEmpty() && property == QLatin1String("Caption") ? &Caption : nullptr;
}

void FormModel::Load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    if (m_texts)
        ApplyFormText();
    Form_Load();
}

void FormModel::ApplyFormText()
{
    const QString form = formName();
    for (const FormTextPath& entry : formTexts()) {
        const QString path = QString::fromLatin1(entry.path);
        const QString property = QString::fromLatin1(entry.property);
        QString* text = textProperty(path, property);
        if (!text)
            throw UnhandledError(QStringLiteral("Method or data member not found: %1.%2").arg(form, path));
        *text = m_texts ? m_texts->GetFormText(form, path, property) : QString();
    }
    notifyChanged();
}

Control* FormModel::findControl(const QString& name) const
{
    for (Control* c : m_controls)
        if (c->Name == name)
            return c;
    return nullptr;
}

QString* FormModel::textProperty(const QString& path, const QString& property)
{
    if (path.isEmpty())
        return property == QLatin1String("Caption") ? &Caption : nullptr;
    const qsizetype dot = path.indexOf(u'.');
    const QString head = dot < 0 ? path : path.left(dot);
    const QString tail = dot < 0 ? QString() : path.mid(dot + 1);
    if (Control* c = findControl(head))
        if (QString* text = c->textProperty(tail, property))
            return text;
    if (!tail.isEmpty())
        if (Control* placed = findControl(tail))
            return placed->textProperty(QString(), property);
    return nullptr;
}

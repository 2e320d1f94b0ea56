#include "FormText.h"

#include "FormModel.h"
#include "MLUtil.h"
#include "UnhandledError.h"

void ApplyFormText(const MLUtil& ml, FormModel& form)
{
    const QString formName = form.formName();
    for (const FormTextPath& entry : form.formTexts()) {
        const QString path = QString::fromLatin1(entry.path);
        const QString property = QString::fromLatin1(entry.property);
        QString* text = form.textProperty(path, property);
        if (!text)
            throw UnhandledError(
                QStringLiteral("Method or data member not found: %1.%2").arg(formName, path));
        *text = ml.GetFormText(formName, path, property);
    }
    form.notifyChanged();
}

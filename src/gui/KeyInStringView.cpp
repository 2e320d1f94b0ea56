#include "KeyInStringView.h"

#include <QLineEdit>
#include <QVBoxLayout>

#include "frmKeyInString.h"

KeyInStringView::KeyInStringView(frmKeyInString& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* txtKeyInString = new QLineEdit(this);
    m_binder.bind(txtKeyInString, model.txtKeyInString);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(label(model.lbKeyInString, txtKeyInString));
    layout->addWidget(txtKeyInString);
    layout->addSpacing(8);
    layout->addLayout(okCancelRow(
        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
        [&model] { model.cmdCancel_Click(); }));
    setMinimumWidth(360);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    refresh();
}

#pragma once

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>

#include "FormView.h"

// A dialog with the link settings rows that the settings dialog and the service window share:
// baud rate, data bits, stop bits, parity and slave id, from form controls of the same names.
class CommSettingRowsView : public DialogView
{
protected:
    using DialogView::DialogView;

    // Lays the rows into grid from row on, with their boxes made on parent; gives the baud box.
    // typedBaud lets the baud rate be typed in as well as chosen.
    template<class Form>
    QComboBox* addCommSettingRows(Form& model, QWidget* parent, QGridLayout* grid, int row, bool typedBaud)
    {
        auto* cmbPortBaud = new QComboBox(parent);
        cmbPortBaud->setEditable(typedBaud);
        cmbPortBaud->setInsertPolicy(QComboBox::NoInsert);
        m_binder.bind(cmbPortBaud, model.cmbPortBaud);
        auto* cmbParityBit = new QComboBox(parent);
        m_binder.bind(cmbParityBit, model.cmbParityBit);
        auto* txtSlaveID = new QLineEdit(parent);
        txtSlaveID->setMaximumWidth(80);
        m_binder.bind(
            txtSlaveID, model.txtSlaveID, [&model] { model.txtSlaveID_Change(); },
            [&model](int& KeyAscii) { model.txtSlaveID_KeyPress(KeyAscii); });

        grid->addWidget(label(model.Label1, cmbPortBaud), row, 0);
        grid->addWidget(cmbPortBaud, row, 1, 1, 2);
        grid->addWidget(label(model.Label2), row + 1, 0);
        grid->addWidget(label(model.lblDataBit), row + 1, 1, 1, 2);
        grid->addWidget(label(model.Label4), row + 2, 0);
        grid->addWidget(label(model.lblStopBit), row + 2, 1, 1, 2);
        grid->addWidget(label(model.Label3, cmbParityBit), row + 3, 0);
        grid->addWidget(cmbParityBit, row + 3, 1, 1, 2);
        grid->addWidget(label(model.Label6, txtSlaveID), row + 4, 0);
        grid->addWidget(txtSlaveID, row + 4, 1);
        grid->addWidget(label(model.Label5), row + 4, 2);
        grid->setColumnStretch(2, 1);
        return cmbPortBaud;
    }
};

#pragma once

#include <QDialog>

#include "FormView.h"

class QLabel;
class QPushButton;
class frmAbout;

// The about box: the model's load runs each time it is shown.
class AboutView : public QDialog, public FormView
{
public:
    explicit AboutView(frmAbout& model, QWidget* parent = nullptr);

    QWidget* widget() override { return this; }
    void refresh() override;
    void load() override;

private:
    frmAbout& m_model;
    QLabel* m_Label1 = nullptr;
    QLabel* m_lblTitle = nullptr;
    QLabel* m_lblVersion = nullptr;
    QPushButton* m_cmdOK = nullptr;
};

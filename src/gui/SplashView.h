#pragma once

#include <QWidget>

#include "FormView.h"

class QLabel;
class frmSplash;

// The splash window: frameless, with the product's labels. A click anywhere on it ends
// the wait of the start.
class SplashView : public QWidget, public FormView
{
public:
    explicit SplashView(frmSplash& model, QWidget* parent = nullptr);
    ~SplashView() override;

    QWidget* widget() override { return this; }
    void refresh() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    frmSplash& m_model;
    QLabel* m_Label1 = nullptr;
    QLabel* m_Label2 = nullptr;
    QLabel* m_Label3 = nullptr;
    QLabel* m_lblProductName = nullptr;
    QLabel* m_lblCompanyProduct = nullptr;
    QLabel* m_lblVersion = nullptr;
};

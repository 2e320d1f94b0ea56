#include "SplashView.h"

#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "Icons.h"
#include "frmSplash.h"

namespace {

QLabel* makeLabel(QWidget* parent, int pointDelta = 0, bool bold = false)
{
    auto* label = new QLabel(parent);
    QFont font = label->font();
    font.setPointSize(font.pointSize() + pointDelta);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

} // namespace

SplashView::SplashView(frmSplash& model, QWidget* parent)
    : BoundView<QWidget>(model, parent, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::Box);
    m_binder.bind(frame, model.fraMainFrame);
    m_binder.onClick(frame, [&model] { model.fraMainFrame_Click(); });
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(6, 6, 6, 6);
    outer->addWidget(frame);

    auto* image = new QLabel(frame);
    image->setPixmap(Icons::pixmap(QStringLiteral("VORNA"), 32));
    m_binder.bind(image, model.Image1);
    m_binder.onClick(image, [&model] { model.Image1_Click(); });

    auto* lblCompanyProduct = makeLabel(frame, 2);
    m_binder.bind(lblCompanyProduct, model.lblCompanyProduct);
    m_binder.onClick(lblCompanyProduct, [&model] { model.lblCompanyProduct_Click(); });
    auto* lblProductName = makeLabel(frame, 8, true);
    lblProductName->setWordWrap(true);
    m_binder.bind(lblProductName, model.lblProductName);
    m_binder.onClick(lblProductName, [&model] { model.lblProductName_Click(); });
    auto* Label3 = makeLabel(frame, 1);
    m_binder.bind(Label3, model.Label3);
    auto* Label1 = makeLabel(frame);
    m_binder.bind(Label1, model.Label1);
    m_binder.onClick(Label1, [&model] { model.Label1_Click(); });
    auto* Label2 = makeLabel(frame, 0, true);
    m_binder.bind(Label2, model.Label2);
    m_binder.onClick(Label2, [&model] { model.Label2_Click(); });
    auto* lblVersion = makeLabel(frame);
    m_binder.bind(lblVersion, model.lblVersion);
    m_binder.onClick(lblVersion, [&model] { model.lblVersion_Click(); });

    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(18, 18, 18, 18);
    grid->addWidget(image, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(lblCompanyProduct, 0, 1, 1, 2);
    grid->addWidget(lblProductName, 1, 1, 1, 2);
    grid->addWidget(Label3, 2, 1, 1, 2);
    grid->setRowStretch(3, 1);
    grid->addWidget(Label1, 4, 1, Qt::AlignRight);
    grid->addWidget(Label2, 4, 2);
    grid->addWidget(lblVersion, 5, 2, Qt::AlignRight);
    grid->setColumnStretch(2, 1);

    // The size fits the longest title of the three languages; the window never shrinks below it.
    setMinimumSize(520, 280);
    refresh();
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

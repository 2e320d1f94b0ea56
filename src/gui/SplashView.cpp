#include "SplashView.h"

#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QVBoxLayout>

#include "Icons.h"
#include "frmSplash.h"

namespace {

QLabel* makeLabel(QWidget* parent, const char* name, int pointDelta = 0, bool bold = false)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    QFont font = label->font();
    font.setPointSize(font.pointSize() + pointDelta);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

} // namespace

SplashView::SplashView(frmSplash& model, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_model(model)
{
    setObjectName(QStringLiteral("frmSplash"));
    setFixedSize(480, 280);

    auto* frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("fraMainFrame"));
    frame->setFrameShape(QFrame::Box);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(6, 6, 6, 6);
    outer->addWidget(frame);

    auto* image = new QLabel(frame);
    image->setObjectName(QStringLiteral("Image1"));
    image->setPixmap(Icons::pixmap(QStringLiteral("VORNA"), 32));

    m_lblCompanyProduct = makeLabel(frame, "lblCompanyProduct", 2);
    m_lblProductName = makeLabel(frame, "lblProductName", 8, true);
    m_Label3 = makeLabel(frame, "Label3", 1);
    m_Label1 = makeLabel(frame, "Label1");
    m_Label2 = makeLabel(frame, "Label2", 0, true);
    m_lblVersion = makeLabel(frame, "lblVersion");

    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(18, 18, 18, 18);
    grid->addWidget(image, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(m_lblCompanyProduct, 0, 1, 1, 2);
    grid->addWidget(m_lblProductName, 1, 1, 1, 2);
    grid->addWidget(m_Label3, 2, 1, 1, 2);
    grid->setRowStretch(3, 1);
    grid->addWidget(m_Label1, 4, 1, Qt::AlignRight);
    grid->addWidget(m_Label2, 4, 2);
    grid->addWidget(m_lblVersion, 5, 2, Qt::AlignRight);
    grid->setColumnStretch(2, 1);

    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
    refresh();
}

SplashView::~SplashView() = default;

void SplashView::refresh()
{
    m_Label1->setText(m_model.Label1);
    m_Label2->setText(m_model.Label2);
    m_Label3->setText(m_model.Label3);
    m_lblProductName->setText(m_model.lblProductName);
    m_lblCompanyProduct->setText(m_model.lblCompanyProduct);
    m_lblVersion->setText(m_model.lblVersion);
}

void SplashView::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    m_model.Control_Click();
}

#include "AboutView.h"

#include <functional>

#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

#include "Icons.h"
#include "frmAbout.h"

namespace {

// The icon reports every press with the button and keys in the program's numbering:
// buttons 1 left, 2 right, 4 middle; Shift 1, Ctrl 2, Alt 4.
class IconLabel : public QLabel
{
public:
    using QLabel::QLabel;
    std::function<void(int, int)> onMouseDown;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        int button = 0;
        switch (event->button()) {
        case Qt::LeftButton:
            button = 1;
            break;
        case Qt::RightButton:
            button = 2;
            break;
        case Qt::MiddleButton:
            button = 4;
            break;
        default:
            break;
        }
        const Qt::KeyboardModifiers keys = event->modifiers();
        const int shift = (keys & Qt::ShiftModifier ? 1 : 0) | (keys & Qt::ControlModifier ? 2 : 0)
            | (keys & Qt::AltModifier ? 4 : 0);
        if (onMouseDown)
            onMouseDown(button, shift);
    }
};

} // namespace

AboutView::AboutView(frmAbout& model, QWidget* parent)
    : QDialog(parent)
    , m_model(model)
{
    setObjectName(QStringLiteral("frmAbout"));
    setModal(true);

    auto* picIcon = new IconLabel(this);
    picIcon->setObjectName(QStringLiteral("picIcon"));
    picIcon->setPixmap(Icons::pixmap(QStringLiteral("VORNA"), 32));
    picIcon->onMouseDown = [this](int button, int shift) {
        m_model.picIcon_MouseDown(button, shift);
        refresh();
    };

    m_Label1 = new QLabel(this);
    m_Label1->setObjectName(QStringLiteral("Label1"));
    m_lblTitle = new QLabel(this);
    m_lblTitle->setObjectName(QStringLiteral("lblTitle"));
    QFont title = m_lblTitle->font();
    title.setPointSize(title.pointSize() + 4);
    title.setBold(true);
    m_lblTitle->setFont(title);
    m_lblVersion = new QLabel(this);
    m_lblVersion->setObjectName(QStringLiteral("lblVersion"));
    m_cmdOK = new QPushButton(this);
    m_cmdOK->setObjectName(QStringLiteral("cmdOK"));
    m_cmdOK->setDefault(true);
    connect(m_cmdOK, &QPushButton::clicked, this, [this] {
        m_model.cmdOK_Click();
        refresh();
    });

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->setHorizontalSpacing(16);
    grid->addWidget(picIcon, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(m_lblTitle, 0, 1);
    grid->addWidget(m_Label1, 1, 1);
    grid->addWidget(m_lblVersion, 2, 1);
    grid->setRowMinimumHeight(3, 12);
    grid->addWidget(m_cmdOK, 4, 1, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
    setMinimumWidth(360);
    refresh();
}

void AboutView::load()
{
    m_model.Form_Load();
}

void AboutView::refresh()
{
    setWindowTitle(m_model.Caption);
    m_Label1->setText(m_model.Label1);
    m_lblTitle->setText(m_model.lblTitle);
    m_lblVersion->setText(m_model.lblVersion);
    m_cmdOK->setText(m_model.cmdOK);
}

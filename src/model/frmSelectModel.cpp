#include "frmSelectModel.h"

#include "VORNAGlobal.h"

namespace {

struct ModelRow
{
    const char* row;
    const char* code;
};

// In list order.
constexpr ModelRow kModels[] = {
    {"KV470-RM64T", "RM64T"},
    {"KV470-TL", "RM64T"},
    {"KV470-TC", "RM64T"},
    {"KV470-RM64MT", "RM64MT"},
    {"KV470-TLF", "RM64MT"},
    {"KV470-TCF", "RM64MT"},
};

} // namespace

QString ModelCodeOf(const QString& row)
{
    for (const ModelRow& m : kModels)
        if (row == QLatin1String(m.row))
            return QLatin1String(m.code);
    return QStringLiteral("UNKNOWN");
}

frmSelectModel::frmSelectModel(VORNAGlobal& g)
    : m_g(g)
{
    Caption = QStringLiteral("型號選擇");
    Label1.Caption = QStringLiteral("型號 :");
    CmdOK.Caption = QStringLiteral("確定");
    cmdExit.Caption = QStringLiteral("取消");
}

void frmSelectModel::LoadFormObj()
{
    Load();
    ModelCode.clear();
    cmbModel.Clear();
    for (const ModelRow& m : kModels)
        cmbModel.AddItem(QLatin1String(m.row), QLatin1String(m.code));
    cmbModel.SelectText(QStringLiteral("KV470-RM64MT"));
}

void frmSelectModel::CmdOK_Click()
{
    ModelCode = ModelCodeOf(cmbModel.Text);
    m_g.platform.hideForm(*this);
}

void frmSelectModel::cmdExit_Click()
{
    m_g.platform.hideForm(*this);
}

#include "CaseName.h"
#include "ModelFixture.h"
#include "UnhandledError.h"
#include "frmProjBasic.h"
#include "frmSelectModel.h"
#include "frmToolsOptions.h"

namespace {

struct OptionsCase
{
    const char* name;
    const char* retry;
    const char* timeout;
    int wantRetry; // -1: an overflow
    int wantTimeout;
};

constexpr OptionsCase kOptionsCases[] = {
    {"text without a number is 0", "abc", "", 0, 0},
    {"ties go to the even one", "2.5", "-3.5", 2, -4},
    {"only the leading number counts", "7 times", " 1.6s", 7, 2},
    {"the limits pass", "32767", "-32768.5", 32767, -32768},
    {"past the limit overflows", "32767.5", "2", -1, 2},
};

class ToolsOptionsTest : public ModelTest, public ::testing::WithParamInterface<OptionsCase>
{ };

// OK rewrites the shipped profile, which is in the writer's form, with the two values; an
// overflow stops before the file.
TEST_P(ToolsOptionsTest, OkRoundsTheBoxesAndRewritesTheProfile)
{
    const OptionsCase c = GetParam();
    const QString profile = folder.path("VORNA.set");
    QByteArray expected = ReadAll(profile);
    frmToolsOptions& f = g.form<frmToolsOptions>();
    f.LoadFormObj();
    f.txtRetry.Text = QString::fromUtf8(c.retry);
    f.txtTimeOut.Text = QString::fromUtf8(c.timeout);
    if (c.wantRetry == -1) {
        EXPECT_THROW(f.CmdOK_Click(), UnhandledError);
    } else {
        f.CmdOK_Click();
        expected.replace("TimeOut=2\r\n", "TimeOut=" + QByteArray::number(c.wantTimeout) + "\r\n");
        expected.replace("Retry=3\r\n", "Retry=" + QByteArray::number(c.wantRetry) + "\r\n");
        EXPECT_EQ(g.link.Timeout, c.wantTimeout);
    }
    EXPECT_EQ(ReadAll(profile), expected);
}

INSTANTIATE_TEST_SUITE_P(Boxes, ToolsOptionsTest, ::testing::ValuesIn(kOptionsCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(ModelTest, ToolsOptionsDefaultsThenCancelChangeNothing)
{
    g.link.Retry = 5;
    expectDialog<frmToolsOptions>([](frmToolsOptions& f) {
        EXPECT_EQ(f.txtRetry.Text, "5");
        f.cmdSetDefault_Click();
        EXPECT_EQ(f.txtRetry.Text + f.txtTimeOut.Text, "32");
        f.cmdExit_Click();
    });
    ShowDialog<frmToolsOptions>(g);
    EXPECT_EQ(g.link.Retry, 5);
}

// Only a field that reads "True" ticks the box.
TEST_F(ModelTest, ProjBasicTicksUnicodeOnlyForATrueField)
{
    const std::pair<QVariant, int> cases[]
        = {{true, CheckBox::Checked}, {-1, CheckBox::Checked}, {false, CheckBox::Unchecked}, {QVariant(), 0}};
    for (const auto& [stored, ticked] : cases) {
        p().rsBasic.setField("IsUnicode", stored);
        p().rsBasic.Update();
        g.form<frmProjBasic>().LoadFormObj();
        EXPECT_EQ(g.form<frmProjBasic>().chkIsUnicode.Value, ticked) << stored.toString().toStdString();
    }
}

// OK writes the row, an emptied author box keeping the author, and stamps today without the
// time of day; the created date stays.
TEST_F(ModelTest, ProjBasicOkWritesTheRowAndStampsTheDay)
{
    for (const char* typed : {"Wang", ""}) {
        p().rsBasic.setField("CreatedBy", "Chen");
        p().rsBasic.setField("CreatedDate", QDate(2020, 1, 2));
        p().rsBasic.Update();
        p().IsProjectModified = false;
        platform.clock = QDateTime(QDate(2027, 2, 28), QTime(23, 59, 59));
        expectDialog<frmProjBasic>([&](frmProjBasic& f) {
            EXPECT_EQ(f.lblCreatedDate.Caption + f.txtPorjName.Text, "2020-01-02Chen");
            f.txtPorjName.Text = QString::fromUtf8(typed);
            f.txtProjDsc.Text = "1\r\n2";
            f.chkIsUnicode.Value = CheckBox::Unchecked;
            f.CmdOK_Click();
        });
        ShowDialog<frmProjBasic>(g);

        QStringList row;
        for (const char* field : {"CreatedBy", "CreatedDate", "ModifiedDate", "ProjectDsc", "IsUnicode"})
            row << FieldText(p().rsBasic, QString::fromLatin1(field));
        EXPECT_EQ(row.join(u'|'),
            QStringLiteral("%1|2020-01-02|2027-02-28|1\r\n2|False").arg(*typed ? "Wang" : "Chen"));
        EXPECT_TRUE(p().IsProjectModified);
    }
}

TEST_F(ModelTest, SelectModelGivesTheFamilyOfTheChosenRowAndCancelNone)
{
    frmSelectModel& f = g.form<frmSelectModel>();
    QStringList codes;
    for (int row = 0; row <= 6; ++row) {
        f.LoadFormObj();
        EXPECT_EQ(f.cmbModel.Text, "KV470-RM64MT");
        f.cmbModel.SelectRow(row);
        row < 6 ? f.CmdOK_Click() : f.cmdExit_Click();
        codes << f.cmbModel.Text + QLatin1Char('=') + f.ModelCode;
    }
    EXPECT_EQ(codes.join(u' '),
        QStringLiteral("KV470-RM64T=RM64T KV470-TL=RM64T KV470-TC=RM64T KV470-RM64MT=RM64MT KV470-TLF=RM64MT "
                       "KV470-TCF=RM64MT ="));
    EXPECT_EQ(ModelCodeOf("KV470"), "UNKNOWN");
}

} // namespace

#include "CommandTable.h"

#include <array>
#include <vector>

#include <QStringList>

#include "DeviceCommands.h"
#include "ProjectCommands.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"VORNACli"};

constexpr std::array<Command, 10> Commands {{
    {"new", "PATH", 1, NoOption, RunNew, 210, 0},
    {"info", "PATH", 1, NoOption, RunInfo, 211, 0},
    {"save-as", "PATH NEWPATH", 2, NoOption, RunSaveAs, 212, 0},
    {"recent", "", 0, NoOption, RunRecent, 213, 0},
    {"image", "PATH", 1, NoOption, RunImage, 214, 224},
    {"connect", "--port P", 0, PortOption, RunConnect, 215, 225},
    {"download", "PATH --port P", 1, PortOption, RunDownload, 216, 226},
    {"settings", "--port P [--slave N] [--baud B] [--parity NONE|ODD|EVEN]", 0, PortOption | WriteOptions,
        RunSettings, 217, 227},
    {"registers", "--port P", 0, PortOption, RunRegisters, 218, 228},
    {"ports", "", 0, NoOption, RunPorts, 219, 229},
}};

// The common options in the order the usage lists them, each with its explanation.
struct OptionHelp
{
    const char* option;
    int id;
};

constexpr std::array<OptionHelp, 7> OptionHelps {{
    {"--dir DIR", 230},
    {"--yes", 231},
    {"--no", 232},
    {"--verbose", 233},
    {"--port P", 234},
    {"--trace FILE", 235},
    {"--help", 236},
}};

// Every usage text in the source language. A text of several lines is looked up line by line,
// each line a piece of its own under the text's id, so that each language breaks its lines
// where it reads well; an empty entry is a blank line, the same in every language.
const std::vector<std::vector<TextKey>>& UsageTexts()
{
    static const std::vector<std::vector<TextKey>> texts {
        {T.key("用法:", 1, 200)},
        {T.key("命令 (vorna-cli COMMAND --help 詳述其中一個):", 1, 201)},
        {T.key("選項:", 1, 202)},
        {T.key("問題若未以 --yes 或 --no 回答，則由標準輸入讀取；沒有輸入時視為取消或否。", 1, 203),
            T.key("結束狀態: 0 完成，1 失敗或取消 (包括回答否的問題)，", 2, 203),
            T.key("2 用法錯誤，3 未處理的錯誤。", 3, 203)},
        {T.key("以範本建立新的專案檔，如同「開新專案」", 1, 210)},
        {T.key("顯示專案的名稱、機型、上限、數量與日期，不做任何變更", 1, 211)},
        {T.key("開啟專案並以新名稱儲存，如同「另存專案」", 1, 212)},
        {T.key("列出最近使用的專案，最新的在前", 1, 213)},
        {T.key("顯示下載專案時會送出的內容，但不送出", 1, 214)},
        {T.key("連線報警機並顯示其身分，如同「連線簡訊報警機」", 1, 215)},
        {T.key("將專案下載至報警機，如同「下載專案」", 1, 216)},
        {T.key("顯示報警機的身分與設定，或寫入其設定", 1, 217)},
        {T.key("讀取報警機的暫存器，如同偵錯工具", 1, 218)},
        {T.key("列出序列埠及其開啟的裝置", 1, 219)},
        {T.key("專案如同視窗開啟時一樣讀取，但讀的是私有副本: 檔案與最近使用清單都不變，", 1, 224),
            T.key("也不開啟通訊埠。接著如同下載前一樣檢查: 計算映像大小，執行專案檢查，", 2, 224),
            T.key("再將大小與機型的記憶體 (MaxMemoryByte) 比較。檢查不通過時，", 3, 224),
            T.key("其訊息框以套用的語言印在 stderr。不詢問任何問題。", 4, 224), {},
            T.key("專案可以下載時的輸出: 以十進位表示的映像位元組數；", 5, 224),
            T.key("下載會送出的每個訊框，依序每行一個，以十六進位表示並含 CRC", 6, 224),
            T.key("(先清除電話簿與簡訊，再來是電話簿記錄、簡訊記錄)；最後是 \"PhoneBook.dbg:\" 與", 7, 224),
            T.key("\"SHORTMSG.dbg:\"，各接著下載會寫入該檔的內容。", 8, 224),
            T.key("所有訊框都在印出第一個之前建好: 中途會失敗的專案不印出任何訊框。", 9, 224), {},
            T.key("結束狀態: 0 專案可以下載，1 檢查不通過 (或檔案無法開啟)，", 10, 224),
            T.key("2 用法錯誤，3 未處理的錯誤 (例如記錄編號超過 255)。", 11, 224)},
        {T.key("開啟通訊埠並詢問報警機的身分，如同「連線簡訊報警機」。其訊息框 (報警機的機型、", 1, 225),
            T.key("序號與設定，或失敗與檢查清單) 以套用的語言印在 stderr。", 2, 225), {},
            T.key("結束狀態: 0 報警機有回應，1 沒有回應 (或通訊埠無法開啟)。", 3, 225)},
        {T.key("如同視窗一樣開啟專案，不詢問就將工作副本覆蓋檔案，再如同「下載專案」一樣下載:", 1, 226),
            T.key(
                "專案檢查、大小檢查、確認問題 (--yes 回答確定)、兩次清除與每筆記錄，然後關閉專案。", 2, 226),
            T.key("PhoneBook.dbg 與 SHORTMSG.dbg 寫在程式資料夾。在終端機上，", 3, 226),
            T.key("正在傳送的記錄顯示在 stderr 的同一行。", 4, 226), {},
            T.key("結束狀態: 0 已下載，1 被拒絕、已取消或失敗。", 5, 226)},
        {T.key("經由裝置設定對話框讀取報警機的機型、序號與通訊設定並印出。", 1, 227),
            T.key("指定 --slave N (1 至 255)、--baud B (報警機機型提供的速率) 或 --parity NONE|ODD|EVEN 時，",
                2, 227),
            T.key("在對話框中選好並按下確定: 其檢查、其確認問題 (--yes 回答確定) 與寫入。", 3, 227),
            T.key("未指定的設定保留報警機原有的值。", 4, 227), {},
            T.key("結束狀態: 0 已讀取 (且已寫入或無須變更)，1 報警機沒有回應、檢查不通過、", 5, 227),
            T.key("問題被取消或寫入失敗；2 不允許的值。", 6, 227)},
        {T.key("依序讀取偵錯工具清單中的每個暫存器並印出: 項目、十六進位內容、位址、長度；", 1, 228),
            T.key("然後是讀取的訊息框。某個暫存器沒有回應時讀取結束，", 2, 228),
            T.key("從它起的各列保持空白。", 3, 228), {},
            T.key("結束狀態: 0 每個暫存器都已讀取，1 其他情形。", 4, 228)},
        {T.key("列出 COM1 至 COM16 及各自開啟的裝置，再列出這些都未對應到的系統序列埠:", 1, 229),
            T.key("通訊埠編號 (沒有時為 \"-\")、裝置路徑、是否存在、轉接器的說明、序號", 2, 229),
            T.key("及其在 /dev/serial/by-id 下的名稱。", 3, 229)},
        {T.key("程式資料夾 (VORNA.set 所在處)；預設為本程式的資料夾", 1, 230)},
        {T.key("每個問題都回答是 (或確定)", 1, 231)},
        {T.key("每個問題都回答否 (或取消)", 1, 232)},
        {T.key("印出長時間作業的狀態文字", 1, 233)},
        {T.key("報警機的通訊埠: COM1 至 COM255 (依 VORNA.set 的 [Ports] 對應)", 1, 234),
            T.key("或裝置路徑，例如 /dev/ttyUSB0", 2, 234)},
        {T.key("將往來報警機的每個訊框隨時寫入 FILE", 1, 235)},
        {T.key("顯示此說明", 1, 236)},
    };
    return texts;
}

// A usage text in the applied language, its lines joined.
QString TextOf(const VORNAGlobal& g, int id)
{
    QStringList lines;
    for (const std::vector<TextKey>& usage : UsageTexts()) {
        if (usage.front().id != id)
            continue;
        for (const TextKey& line : usage)
            lines << (line.module ? g.GetText(line) : QString());
    }
    return lines.join(u'\n');
}

// The first line of every usage: the program's call, with the command's part given.
QString CallLine(const VORNAGlobal& g, const QString& command)
{
    return TextOf(g, 200) + QStringLiteral(" vorna-cli [--dir DIR] [--yes | --no] [--verbose] ") + command
        + u'\n';
}

// A name in a left column of the given width and its explanation beside it, the explanation's
// further lines under its first; a name too long for its column has its explanation below it.
QString Columns(const QString& name, int width, const QString& explanation)
{
    const QString indent(width + 2, u' ');
    QString text = QStringLiteral("  ") + name;
    text += name.size() + 2 <= width ? QString(width - name.size(), u' ') : u'\n' + indent;
    return text + QString(explanation).replace(u'\n', u'\n' + indent) + u'\n';
}

// The call of a command: its name and its arguments.
QString CallOf(const Command& c)
{
    return (QString::fromLatin1(c.name) + u' ' + QString::fromLatin1(c.arguments)).trimmed();
}

} // namespace

const Command* FindCommand(const QString& name)
{
    for (const Command& c : Commands)
        if (name == QLatin1String(c.name))
            return &c;
    return nullptr;
}

QString Usage(const VORNAGlobal& g)
{
    QString text = CallLine(g, QStringLiteral("COMMAND [ARG...] [--port P] [--trace FILE]")) + u'\n'
        + TextOf(g, 201) + u'\n';
    for (const Command& c : Commands)
        text += Columns(CallOf(c), 23, TextOf(g, c.summaryId));
    text += u'\n' + TextOf(g, 202) + u'\n';
    for (const OptionHelp& o : OptionHelps)
        text += Columns(QString::fromLatin1(o.option), 14, TextOf(g, o.id));
    return text + u'\n' + TextOf(g, 203);
}

QString CommandUsage(const VORNAGlobal& g, const Command& c)
{
    const QString trace = (c.options & PortOption) ? QStringLiteral(" [--trace FILE]") : QString();
    const QString text = CallLine(g, CallOf(c) + trace) + u'\n' + TextOf(g, c.summaryId);
    return c.detailsId ? text + QStringLiteral("\n\n") + TextOf(g, c.detailsId) : text;
}

#include "MenuDesign.h"

#include "frmMain.h"

namespace {

const MenuDesign kMenuDesign[] = {
    {"mnuFile", "", "檔案(&F)", &frmMain::mnuFile_Click},
    {"mnuFileNew", "mnuFile", "開新專案(&N)...", &frmMain::mnuFileNew_Click, "Ctrl+N"},
    {"mnuFileOpen", "mnuFile", "開啟專案(&O)", &frmMain::mnuFileOpen_Click, "Ctrl+O"},
    {"mnuFileSave", "mnuFile", "儲存專案(&S)", &frmMain::mnuFileSave_Click, "Ctrl+S"},
    {"mnuFileSaveAs", "mnuFile", "另存專案(&A)", &frmMain::mnuFileSaveAs_Click},
    {"mnuFileBar0", "mnuFile", "-"},
    {"mnuFileBasic", "mnuFile", "摘要資訊(&I)", &frmMain::mnuFileBasic_Click},
    {"mnuFileBar1", "mnuFile", "-"},
    {"mnuFileMRU(1)", "mnuFile", "MRU1"},
    {"mnuFileMRU(2)", "mnuFile", "MRU2"},
    {"mnuFileMRU(3)", "mnuFile", "MRU3"},
    {"mnuFileMRU(4)", "mnuFile", "MRU4"},
    {"mnuFileBar2", "mnuFile", "-"},
    {"mnuFileExit", "mnuFile", "結束(&X)", &frmMain::mnuFileExit_Click},
    {"mnuProj", "", "專案(&P)", &frmMain::mnuProj_Click},
    {"mnuProjAddGroupList", "mnuProj", "新增群組", &frmMain::mnuProjAddGroupList_Click},
    {"mnuProjAddTelList", "mnuProj", "新增電話", &frmMain::mnuProjAddTelList_Click},
    {"mnuProjBar0", "mnuProj", "-"},
    {"mnuProjEditGroupList", "mnuProj", "編輯群組", &frmMain::mnuProjEditGroupList_Click},
    {"mnuProjEditTelList", "mnuProj", "編輯電話", &frmMain::mnuProjEditTelList_Click},
    {"mnuProjEditZoneList", "mnuProj", "編輯警報點", &frmMain::mnuProjEditZoneList_Click},
    {"mnuProjBar1", "mnuProj", "-"},
    {"mnuProjDeleteGroupList", "mnuProj", "刪除群組", &frmMain::mnuProjDeleteGroupList_Click},
    {"mnuProjDeleteTelList", "mnuProj", "刪除電話", &frmMain::mnuProjDeleteTelList_Click},
    {"mnuView", "", "檢視(&V)"},
    {"mnuViewToolbar", "mnuView", "工具列(&T)", nullptr, "", true, true},
    {"mnuViewStatusBar", "mnuView", "狀態列(&B)", nullptr, "", true, true},
    {"mnuViewBar0", "mnuView", "-", nullptr, "", true},
    {"mnuListViewMode(0)", "mnuView", "大圖示(&G)", nullptr, "", true},
    {"mnuListViewMode(1)", "mnuView", "小圖示(&M)", nullptr, "", true},
    {"mnuListViewMode(2)", "mnuView", "清單(&L)", nullptr, "", true},
    {"mnuListViewMode(3)", "mnuView", "詳細資料(&D)", nullptr, "", true},
    {"mnuViewBar1", "mnuView", "-", nullptr, "", true},
    {"mnuViewArrangeIcons", "mnuView", "排列圖示(&I)", nullptr, "", true},
    {"mnuViewBar2", "mnuView", "-", nullptr, "", true},
    {"mnuViewRefresh", "mnuView", "重新整理(&R)", &frmMain::mnuViewRefresh_Click, "F5"},
    {"mnuViewWebBrowser", "mnuView", "資訊網瀏覽器(&W)", nullptr, "", true},
    {"mnuTools", "", "工具(&T)"},
    {"mnuToolsOptions", "mnuTools", "選項(&O)...", &frmMain::mnuToolsOptions_Click},
    {"mnuDevice", "", "簡訊報警機(&A)", &frmMain::mnuDevice_Click},
    {"mnuDeviceConnect", "mnuDevice", "連線簡訊報警機", &frmMain::mnuDeviceConnect_Click},
    {"mnuDeviceBar0", "mnuDevice", "-"},
    {"mnuDeviceDownLoad", "mnuDevice", "下載專案(&D)", &frmMain::mnuDeviceDownLoad_Click},
    {"mnuDeviceSetting", "mnuDevice", "裝置設定(&S)", &frmMain::mnuDeviceSetting_Click},
    {"mnuDeviceBar1", "mnuDevice", "-", nullptr, "", true},
    {"mnuHelp", "", "說明(&H)"},
    {"mnuHelpContents", "mnuHelp", "內容(&C)", nullptr, "", true},
    {"mnuHelpSearchForHelpOn", "mnuHelp", "搜尋說明主題(&S)...", nullptr, "", true},
    {"mnuHelpBar0", "mnuHelp", "-", nullptr, "", true},
    {"mnuHelpAbout", "mnuHelp", "關於簡訊報警機(&A)", &frmMain::mnuHelpAbout_Click},
    {"mnuProjConent", "", "專案內容", nullptr, "", true},
    {"mnuProjConentAddGroupList", "mnuProjConent", "新增群組"},
    {"mnuProjConentAddTelList", "mnuProjConent", "新增電話"},
    {"mnuProjConentBar1", "mnuProjConent", "-"},
    {"mnuProjConentDeleteTelList", "mnuProjConent", "刪除電話"},
    {"mnuProjConentDeleteGroupList", "mnuProjConent", "刪除群組"},
    {"mnuProjConentEditGroupList", "mnuProjConent", "編輯群組"},
    {"mnuProjConentEditTelList", "mnuProjConent", "編輯電話"},
    {"mnuProjConentEditZoneList", "mnuProjConent", "編輯警報點"},
    // The popup's last three entries and the bar above them have no row of their own: their
    // captions are set at each right click.
    {.name = "mnuProjConentBar2", .parent = "mnuProjConent", .caption = "-", .formText = false},
    {.name = "mnuProjConentAddUser", .parent = "mnuProjConent", .caption = "加入連絡人", .formText = false},
    {.name = "mnuProjConentAddGroup", .parent = "mnuProjConent", .caption = "加入新群組", .formText = false},
    {.name = "mnuProjConentMoveUser",
        .parent = "mnuProjConent",
        .caption = "轉移到其它群組",
        .formText = false},
};

} // namespace

std::span<const MenuDesign> MenuDesigns()
{
    return kMenuDesign;
}

#pragma once

#include <QString>

// The connect's and the download's own texts, as the user reads them in the default language.

inline const QString DownloadTitle = QStringLiteral("下載專案");
inline const QString ConnectTitle = QStringLiteral("連線簡訊報警機");

inline const QString CheckLines = QStringLiteral("請檢查下列項目:\r\n1. RS232 通訊線是否已正確連接\r\n"
                                                 "2. PC通訊埠是否正確指定\r\n"
                                                 "3. 簡訊報警機的指撥開關SW2是否設為 ON (設定模式)");

inline QString SendFailure(const QString& project)
{
    return QStringLiteral("下載專案 [") + project + QStringLiteral("] 失敗!\r\n") + CheckLines;
}

inline QString Confirmation(int size, int free)
{
    return QStringLiteral("欲下載的專案佔 [%1 Byte], 剩餘空間 [%2 Byte].\r\n是否確定要下載專案至簡訊報警機?")
        .arg(size)
        .arg(free);
}

inline QString DownloadSuccess(const QString& project, int size)
{
    return QStringLiteral(
        "下載專案 [%1:%2 Byte ] 成功!\r\n請使用者將簡訊報警機的指撥開關SW2設為 OFF (執行模式)")
        .arg(project)
        .arg(size);
}

inline const QString ConnectFailure = QStringLiteral("連線至簡訊報警機失敗! \r\n") + CheckLines;

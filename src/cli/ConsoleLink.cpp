#include "ConsoleLink.h"

#include <cstdio>

#include <unistd.h>

#include "ConsolePlatform.h"
#include "VORNAGlobal.h"
#include "frmMessage.h"

namespace {

constexpr int BarWidth = 30;

QString Bar(const ProgressBar& bar)
{
    const int span = bar.Max - bar.Min;
    const int filled = span > 0 ? BarWidth * (bar.Value - bar.Min) / span : 0;
    return QLatin1Char('[') + QString(filled, u'#') + QString(BarWidth - filled, u' ') + QLatin1Char(']');
}

} // namespace

ConsoleLink::ConsoleLink(VORNAGlobal& g, ConsolePlatform& platform)
    : m_g(g)
    , m_platform(platform)
    , m_comm(g.platform)
    , m_busy(g.form<frmMessage>())
    , m_terminal(isatty(fileno(stderr)))
{
    m_g.link.CommCtl = &m_comm;
    m_g.link.BusyForm = &m_busy;
    m_busy.onChanged = [this] { paintBusyBox(); };
    // A box in the middle of a download starts on a line of its own.
    m_platform.beforeBox = [this] { endProgressLine(); };
}

ConsoleLink::~ConsoleLink()
{
    endProgressLine();
    m_platform.beforeBox = nullptr;
    m_busy.onChanged = nullptr;
    m_g.link.BusyForm = nullptr;
    m_g.link.CommCtl = nullptr;
}

void ConsoleLink::paintBusyBox()
{
    if (!m_busy.Visible || !m_busy.lblProgress.Visible) {
        endProgressLine();
        return;
    }
    if (!m_terminal)
        return;
    const QString line = m_busy.lblProgress.Caption + QLatin1Char(' ') + Bar(m_busy.prgProgress);
    // A shorter line than the last leaves none of it behind.
    const QString blank(std::max<qsizetype>(0, m_lineLength - line.size()), u' ');
    std::fputs((QLatin1Char('\r') + line + blank).toUtf8().constData(), stderr);
    std::fflush(stderr);
    m_lineLength = line.size();
}

void ConsoleLink::endProgressLine()
{
    if (m_lineLength == 0)
        return;
    std::fputs("\n", stderr);
    std::fflush(stderr);
    m_lineLength = 0;
}

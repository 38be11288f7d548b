#include "inp_StageTimer.h"

#include "pnt_debugPrint.h"
#include "typ_DebugFlags.h"

inp_StageTimer::inp_StageTimer(char const* label) : m_label(label) { m_timer.Start(); }

inp_StageTimer::~inp_StageTimer()
{
  m_timer.Stop();
  if (typ_DebugFlags::GetDebugFlags(30) >= 1)
  {
    pnt_debugPrint().StartDebug() << m_label << " - Elapsed time: " << m_timer.ElapsedSeconds()
                                  << "  CPU time: " << m_timer.CpuSeconds() << '\n';
    pnt_debugPrint().EndDebug();
  }
}

#pragma once

/// In what form the analysis writes its results. The process's one object of this class is
/// omi_Singleton<VRXAspBcuAnalysisIROptions>::Instance(); both answers are false until a driver says
/// otherwise.
class VRXAspBcuAnalysisIROptions
{
public:
  bool IsResultsSim() const { return m_isSim; }
  bool IsResultsBoth() const { return m_isBoth; }

  void SetResultsSim(bool isSim) { m_isSim = isSim; }
  void SetResultsBoth(bool isBoth) { m_isBoth = isBoth; }

private:
  bool m_isSim{false};
  bool m_isBoth{false};
};

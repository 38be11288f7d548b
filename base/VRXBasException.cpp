#include "VRXBasException.h"

#include <exception>

namespace
{

atr_String WithPlace(atr_String report, char const* file, int line)
{
  if (file != nullptr)
    report.Append(" (").Append(file).Append(":").Append(cow_String(line)).Append(")");
  return report;
}

} // namespace

atr_String VRXBasException::DeveloperReport(VRXBasStringMode mode) const
{
  return WithPlace(UserReport(mode), m_sourceFile, m_sourceLine);
}

atr_String VRXBasException::UserReport(VRXBasStringMode) const { return atr_String(); }

cow_String VRXBasException::AsString(VRXBasStringMode mode) const { return UserReport(mode); }

void VRXBasException::Propagate() const { throw VRXBasException(*this); }

VRXBasException* VRXBasException::Clone() const { return Copy(); }

char const* VRXBasException::GetCode() const
{
  atr_String const report = UserReport();
  return report.Origin() != nullptr ? report.Origin()->code : "";
}

VRXBasException* VRXBasException::Copy() const { return new VRXBasException(*this); }

std::type_info const& VRXBasException::DynTypeId() const { return typeid(*this); }

void VRXBasException::DBWrite(cls_WriteVisitor const& visitor) const
{
  visitor.Write(DynTypeId().name(), UserReport());
}

void VRXBasException::Throw(char const* file, int line)
{
  m_sourceFile = file;
  m_sourceLine = line;
  Propagate();
  std::terminate(); // an override of Propagate did not raise
}

VRXBasAssertException::VRXBasAssertException(char const* condition, char const* file, int line)
  : m_condition(condition), m_file(file), m_line(line)
{
}

atr_String VRXBasAssertException::DeveloperReport(VRXBasStringMode mode) const
{
  return WithPlace(UserReport(mode), m_file, m_line);
}

atr_String VRXBasAssertException::UserReport(VRXBasStringMode) const
{
  return atr_String(m_condition);
}

void VRXBasAssertException::Propagate() const { throw VRXBasAssertException(*this); }

VRXBasAssertException* VRXBasAssertException::Copy() const
{
  return new VRXBasAssertException(*this);
}

void VRXBasRaiseAssert(char const* condition, char const* file, int line)
{
  throw VRXBasAssertException(condition, file, line);
}

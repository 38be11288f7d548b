#pragma once

#include "VRXBasStringMode.h"
#include "atr_String.h"
#include "mem_Allocation.h"

#include <typeinfo>

/// Takes the data of an exception for keeping: its class, and what it says.
class cls_WriteVisitor
{
public:
  virtual ~cls_WriteVisitor() = default;
  virtual void Write(char const* className, atr_String const& text) const = 0;
};

/// Root of all exceptions of the system.
class VRXBasException : public mem_AllocationOperators
{
public:
  VRXBasException() = default;
  VRXBasException(VRXBasException const&) = default;
  VRXBasException& operator=(VRXBasException const&) = default;
  virtual ~VRXBasException() = default;

  /// What happened, for a developer: the user's words, and the source file and line where known.
  virtual atr_String DeveloperReport(VRXBasStringMode mode = VRXBasStringMode()) const;
  /// What happened, for a user, with the message's origin.
  virtual atr_String UserReport(VRXBasStringMode mode = VRXBasStringMode()) const;
  virtual cow_String AsString(VRXBasStringMode mode = VRXBasStringMode()) const;
  /// Raises a copy of this exception as its own type.
  [[noreturn]] virtual void Propagate() const;
  /// A heap copy of the same class, for the caller to delete.
  virtual VRXBasException* Clone() const;
  /// The message's stable code; "" when there is none.
  virtual char const* GetCode() const;
  /// As Clone; what a derived class overrides.
  virtual VRXBasException* Copy() const;
  virtual std::type_info const& DynTypeId() const;
  virtual void DBWrite(cls_WriteVisitor const& visitor) const;

  /// Records source file and line and raises this exception as its own type.
  [[noreturn]] void Throw(char const* file, int line);

  /// Null and 0 when the exception was not raised by Throw.
  char const* SourceFile() const noexcept { return m_sourceFile; }
  int SourceLine() const noexcept { return m_sourceLine; }

private:
  char const* m_sourceFile = nullptr;
  int m_sourceLine = 0;
};

/// A broken invariant of the program, with the failed condition as its text.
class VRXBasAssertException : public VRXBasException
{
public:
  explicit VRXBasAssertException(char const* condition) : m_condition(condition) {}
  /// Both texts must outlive the exception: literals.
  VRXBasAssertException(char const* condition, char const* file, int line);

  char const* Condition() const noexcept { return m_condition; }

  atr_String DeveloperReport(VRXBasStringMode mode = VRXBasStringMode()) const override;
  atr_String UserReport(VRXBasStringMode mode = VRXBasStringMode()) const override;
  [[noreturn]] void Propagate() const override;
  VRXBasAssertException* Copy() const override;

  char const* File() const noexcept { return m_file; }
  int Line() const noexcept { return m_line; }

private:
  char const* m_condition;
  char const* m_file = nullptr;
  int m_line = 0;
};

[[noreturn]] void VRXBasRaiseAssert(char const* condition, char const* file, int line);

/// Raises VRXBasAssertException with the text unless the condition holds; in every build.
#define VRXBasAssert(condition, text)                                                              \
  do                                                                                               \
  {                                                                                                \
    if (!(condition))                                                                              \
      VRXBasRaiseAssert(text, __FILE__, __LINE__);                                                 \
  } while (false)

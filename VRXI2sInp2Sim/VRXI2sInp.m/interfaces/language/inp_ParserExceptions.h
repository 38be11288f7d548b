#pragma once

#include "atr_String.h"
#include "cow_List.h"
#include "cow_String.h"
#include "nex_Exception.h"

/// The faults that end the reading of one keyword. The reader catches them at the keyword's edge,
/// keeps their words and goes on at the next keyword.
///
/// The words are the message alone; line and file stand beside them, here and in the message's
/// origin, so that a driver can show the place.

using nex_AtrException = nex_PrimException<atr_String, 1>;

/// Gives a class of the family its own Copy and Propagate.
template <class Derived, class Base>
class inp_ExceptionOf : public Base
{
public:
  using Base::Base;
  Base* Copy() const override { return new Derived(static_cast<Derived const&>(*this)); }
  [[noreturn]] void Propagate() const override
  {
    throw Derived(static_cast<Derived const&>(*this));
  }
};

/// Base of the faults that belong to a keyword of the deck.
class inp_KeywordException : public inp_ExceptionOf<inp_KeywordException, nex_AtrException>
{
public:
  inp_KeywordException(int line, cow_String const& file, atr_String const& message);

  int Line() const { return m_line; }
  cow_String const& File() const { return m_file; }

protected:
  /// For faults about the keyword's name, which goes with the message to the sink.
  inp_KeywordException(int line, cow_String const& file, cow_String const& name,
                       atr_String const& message);

private:
  int m_line;
  cow_String m_file;
};

/// Base of the faults in the parameters of a keyword line.
class inp_ParameterException : public inp_ExceptionOf<inp_ParameterException, nex_AtrException>
{
public:
  explicit inp_ParameterException(atr_String const& message);
};

class inp_MemoryException : public inp_ExceptionOf<inp_MemoryException, nex_AtrException>
{
public:
  inp_MemoryException();
};

/// Elements whose nodes are not defined; leaves a pass over the mesh.
class inp_ElementUndefinedNodesError
  : public inp_ExceptionOf<inp_ElementUndefinedNodesError, nex_AtrException>
{
public:
  explicit inp_ElementUndefinedNodesError(cow_List<int> const& elements);
  inp_ElementUndefinedNodesError(cow_List<int> const& elements, cow_String const& instance);

  cow_List<int> const& Elements() const { return m_elements; }

private:
  cow_List<int> m_elements;
};

class inp_InvalidParameterException
  : public inp_ExceptionOf<inp_InvalidParameterException, inp_ParameterException>
{
public:
  explicit inp_InvalidParameterException(cow_String const& piece);
};

class inp_InvalidParameterValueException
  : public inp_ExceptionOf<inp_InvalidParameterValueException, inp_ParameterException>
{
public:
  inp_InvalidParameterValueException(cow_String const& value, cow_String const& name);
};

class inp_MissingEndQuoteException
  : public inp_ExceptionOf<inp_MissingEndQuoteException, inp_ParameterException>
{
public:
  explicit inp_MissingEndQuoteException(cow_String const& text);
};

class inp_UnknownKeywordException
  : public inp_ExceptionOf<inp_UnknownKeywordException, inp_KeywordException>
{
public:
  inp_UnknownKeywordException(int line, cow_String const& file, cow_String const& name);
  cow_String const& Name() const { return m_name; }

private:
  cow_String m_name;
};

class inp_AmbiguousKeywordException
  : public inp_ExceptionOf<inp_AmbiguousKeywordException, inp_KeywordException>
{
public:
  inp_AmbiguousKeywordException(int line, cow_String const& file, cow_String const& name);
  cow_String const& Name() const { return m_name; }

private:
  cow_String m_name;
};

/// A fault in the parameters, with the keyword that they belong to.
class inp_KeywordParameterException
  : public inp_ExceptionOf<inp_KeywordParameterException, inp_KeywordException>
{
public:
  inp_KeywordParameterException(int line, cow_String const& file, cow_String const& name,
                                inp_ParameterException const& cause);
  cow_String const& Name() const { return m_name; }

private:
  cow_String m_name;
};

class inp_InvalidContinuationLineException
  : public inp_ExceptionOf<inp_InvalidContinuationLineException, inp_KeywordException>
{
public:
  inp_InvalidContinuationLineException(int line, cow_String const& file, atr_String const& message);
};

class inp_EncryptionException
  : public inp_ExceptionOf<inp_EncryptionException, inp_KeywordException>
{
public:
  inp_EncryptionException(int line, cow_String const& file, atr_String const& message);
};

class inp_NoInputParameterException
  : public inp_ExceptionOf<inp_NoInputParameterException, inp_KeywordException>
{
public:
  inp_NoInputParameterException(int line, cow_String const& file);
};

class inp_MissingIncludeFileException
  : public inp_ExceptionOf<inp_MissingIncludeFileException, inp_KeywordException>
{
public:
  inp_MissingIncludeFileException(int line, cow_String const& file, cow_String const& name);
};

class inp_UnreadableIncludeFileException
  : public inp_ExceptionOf<inp_UnreadableIncludeFileException, inp_KeywordException>
{
public:
  inp_UnreadableIncludeFileException(int line, cow_String const& file, cow_String const& name);
};

class inp_CircularIncludeFileException
  : public inp_ExceptionOf<inp_CircularIncludeFileException, inp_KeywordException>
{
public:
  inp_CircularIncludeFileException(int line, cow_String const& file, cow_String const& name);
};

class inp_ParameterizedIncludeFileException
  : public inp_ExceptionOf<inp_ParameterizedIncludeFileException, inp_KeywordException>
{
public:
  inp_ParameterizedIncludeFileException(int line, cow_String const& file, cow_String const& name);
};

#pragma once

#include "inp_Columns.h"

/// What is named.
enum inp_referenceEnm
{
  inp_noReference, ///< closes a run of places
  inp_refNodes,    ///< nodes and node sets
  inp_refElements, ///< elements and element sets
  inp_refSurface,
  inp_refOrientation,
  inp_refInflator, ///< fluid inflators and their properties
  inp_refDistribution,
  inp_refTable, ///< the tables of distributions
  inp_refMaterial,
  inp_refGenerator ///< particle generators
};

/// From which line of a record to the first of the next one: a number, or one that follows from the
/// model or the keyword. A deck has eight values a line, so that a record of n values, with what it
/// belongs to in front, takes n / 8 + 1 lines.
enum inp_stepEnm
{
  inp_stepFixed,
  inp_stepPoints,             ///< a value for each section or temperature point
  inp_stepFields,             ///< the same, as many times as NUMBER says
  inp_stepDistribution,       ///< the table's; below 1 when there is none
  inp_stepBackstresses,       ///< NUMBER BACKSTRESSES lines
  inp_stepDependentVariables, ///< the solution-dependent variables of a point
  inp_stepElementVariables,   ///< those of an element
  inp_stepRebar               ///< 2 for skew rebars in continuum elements
};

/// Numbers in the first line's first field, which tell that the line is passed over.
enum inp_numbersEnm
{
  inp_noNumbers,
  inp_numbersWithE, ///< reals with "e" for the exponent
  inp_numbersWithD  ///< with "e" or "d"
};

/// Lines that go on in the next one, which names nothing then.
enum inp_goesOnEnm
{
  inp_goesOnNever,
  inp_goesOnFollowerLoads ///< of the types TFD, TWD and TSI, in field 2
};

/// A parameter that decides whether a place counts. Values compare as they stand, in upper case.
struct inp_PlaceCondition
{
  enum testEnm
  {
    has,
    lacks,
    is,         ///< one of the words
    isOrAbsent, ///< the word, or no text at all
    isNot,      ///< anything but the word, nothing included
    isOther     ///< a text, but not the word
  };
  static constexpr int c_words = 9;

  char const* parameter = nullptr; ///< null closes the conditions
  testEnm test = has;
  char const* words[c_words] = {};
};

/// A place of a keyword where something is named: a parameter, or fields of data lines. Fields and
/// lines count from 1, as in a manual. A row of a table is written as a chain of the functions
/// below. What can be no name (see inp_ReferenceVisitor) stays wherever it stands.
struct inp_ReferencePlace
{
  static constexpr int c_conditions = 3;

  inp_referenceEnm what = inp_noReference;
  char const* parameter = nullptr; ///< null: data lines
  inp_Columns columns;
  bool byValue = false;       ///< each field by itself (see inp_SetFixupVisitor)
  bool isText = false;        ///< what reads as a number stays
  bool isId = false;          ///< one field that holds a number, scoped or not; sets stay
  bool viaDefinition = false; ///< through VisitSurfaceDefinition
  int firstLine = 1;
  int lastLine = 0; ///< 0: the last
  inp_stepEnm step = inp_stepFixed;
  int stepLines = 1;     ///< of inp_stepFixed
  int fieldsAtLeast = 1; ///< shorter lines are passed over
  inp_numbersEnm numbers = inp_noNumbers;
  inp_goesOnEnm goesOn = inp_goesOnNever;
  inp_PlaceCondition conditions[c_conditions] = {};
  char const* note = nullptr; ///< what no column of the table says

  constexpr bool IsData() const { return parameter == nullptr; }
  constexpr bool IsOfNodesOrElements() const
  {
    return what == inp_refNodes || what == inp_refElements;
  }
  /// The walks can do what the place asks for: those of names know no model, which some steps follow from,
  /// and single numbers, values by themselves and surface definitions are of nodes and elements.
  constexpr bool IsServed() const
  {
    bool const asksForSets = byValue || isId || viaDefinition || step != inp_stepFixed;
    bool const isWhole =
      IsData() || (firstLine == 1 && lastLine == 0 && stepLines == 1 && fieldsAtLeast == 1 &&
                   numbers == inp_noNumbers && goesOn == inp_goesOnNever);
    return isWhole && (IsOfNodesOrElements() || !asksForSets) && (!isId || lastLine == firstLine);
  }

  static constexpr inp_ReferencePlace Of(inp_referenceEnm named)
  {
    inp_ReferencePlace place;
    place.what = named;
    return place;
  }

  template <class Value>
  constexpr inp_ReferencePlace With(Value inp_ReferencePlace::*member, Value given) const
  {
    inp_ReferencePlace place = *this;
    place.*member = given;
    return place;
  }

  /// Adds a condition: what Has, Is and their like below come to.
  // A condition too many, or a word too many, writes past the array and so does not compile.
  template <class... Words>
  constexpr inp_ReferencePlace When(inp_PlaceCondition::testEnm test, char const* name,
                                    Words... words) const
  {
    inp_ReferencePlace place = *this;
    int free = 0;
    while (place.conditions[free].parameter != nullptr)
    {
      ++free;
    }
    inp_PlaceCondition& condition = place.conditions[free];
    condition.parameter = name;
    condition.test = test;
    int count = 0;
    ((condition.words[count++] = words), ...);
    return place;
  }

  constexpr inp_ReferencePlace Parameter(char const* name) const
  {
    return With(&inp_ReferencePlace::parameter, name);
  }

  template <class... Numbers>
  constexpr inp_ReferencePlace Fields(Numbers... fields) const
  {
    return With(&inp_ReferencePlace::columns, inp_Columns::OfFields(fields...));
  }
  constexpr inp_ReferencePlace AllFields() const
  {
    return With(&inp_ReferencePlace::columns, inp_Columns::All());
  }
  constexpr inp_ReferencePlace Id(int line, int field) const
  {
    return Fields(field).OnLine(line).With(&inp_ReferencePlace::isId, true);
  }

  constexpr inp_ReferencePlace Texts() const { return With(&inp_ReferencePlace::isText, true); }
  constexpr inp_ReferencePlace ByValue() const { return With(&inp_ReferencePlace::byValue, true); }
  constexpr inp_ReferencePlace AsSurfaceDefinition() const
  {
    return With(&inp_ReferencePlace::viaDefinition, true);
  }
  constexpr inp_ReferencePlace FromLine(int line) const
  {
    return With(&inp_ReferencePlace::firstLine, line);
  }
  constexpr inp_ReferencePlace OnLine(int line) const
  {
    return FromLine(line).With(&inp_ReferencePlace::lastLine, line);
  }
  constexpr inp_ReferencePlace Step(int lines) const
  {
    return With(&inp_ReferencePlace::stepLines, lines);
  }
  constexpr inp_ReferencePlace StepBy(inp_stepEnm rule) const
  {
    return With(&inp_ReferencePlace::step, rule);
  }
  constexpr inp_ReferencePlace FieldsAtLeast(int count) const
  {
    return With(&inp_ReferencePlace::fieldsAtLeast, count);
  }
  /// Passes over the first line when such a number begins it.
  constexpr inp_ReferencePlace BehindNumbers(inp_numbersEnm kind) const
  {
    return With(&inp_ReferencePlace::numbers, kind);
  }

  /// Passes over a line that another one goes on in.
  constexpr inp_ReferencePlace ButBehind(inp_goesOnEnm lines) const
  {
    return With(&inp_ReferencePlace::goesOn, lines);
  }

  constexpr inp_ReferencePlace Has(char const* name) const
  {
    return When(inp_PlaceCondition::has, name);
  }
  constexpr inp_ReferencePlace Lacks(char const* name) const
  {
    return When(inp_PlaceCondition::lacks, name);
  }
  template <class... Words>
  constexpr inp_ReferencePlace Is(char const* name, Words... words) const
  {
    return When(inp_PlaceCondition::is, name, words...);
  }
  constexpr inp_ReferencePlace IsOrAbsent(char const* name, char const* word) const
  {
    return When(inp_PlaceCondition::isOrAbsent, name, word);
  }
  constexpr inp_ReferencePlace IsNot(char const* name, char const* word) const
  {
    return When(inp_PlaceCondition::isNot, name, word);
  }
  constexpr inp_ReferencePlace IsOther(char const* name, char const* word) const
  {
    return When(inp_PlaceCondition::isOther, name, word);
  }
  constexpr inp_ReferencePlace Note(char const* text) const
  {
    return With(&inp_ReferencePlace::note, text);
  }
};

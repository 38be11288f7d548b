#include "inp_ParserExceptions.h"

#include <memory>
#include <typeinfo>

#include <gtest/gtest.h>

#include "inp_ReaderMessages.h"

namespace
{

/// Words, if given, place, and that copying and raising anew keep both the class and the words.
template <class Fault>
void Check(Fault const& fault, char const* words = nullptr, int line = 0, char const* keyword = "")
{
  SCOPED_TRACE(fault.UserReport().CStr());
  if (words != nullptr)
  {
    EXPECT_EQ(fault.UserReport(), words);
  }
  ASSERT_NE(fault.UserReport().Origin(), nullptr);
  EXPECT_EQ(fault.UserReport().Origin()->line, line);
  EXPECT_EQ(fault.UserReport().Origin()->file, line == 0 ? "" : "f.inp");
  EXPECT_EQ(fault.UserReport().Origin()->keyword, keyword);
  if constexpr (std::is_base_of_v<inp_KeywordException, Fault>)
  {
    EXPECT_EQ(fault.Line(), line);
    EXPECT_EQ(fault.File(), "f.inp");
  }
  std::unique_ptr<nex_AtrException> const copy(fault.Copy());
  nex_AtrException const& copied = *copy;
  EXPECT_EQ(typeid(copied), typeid(Fault));
  try
  {
    copied.Propagate();
  }
  catch (nex_AtrException const& raised)
  {
    EXPECT_EQ(typeid(raised), typeid(Fault));
    EXPECT_EQ(raised.UserReport(), fault.UserReport());
  }
}

} // namespace

// The words of the others stand in the tests of those who raise them.
TEST(inp_ParserExceptions, SayWhatIsWrongAndWhereAndKeepTheirClass)
{
  cow_String const file("f.inp");
  cow_List<int> elements;
  elements.Append(3).Append(5);
  Check(inp_KeywordException(7, file, atr_Say(inp_msgUnknownException)), "Unknown exception", 7);
  Check(inp_MemoryException(),
        "Memory allocation error. Insufficient physical memory or swap space.");
  inp_ElementUndefinedNodesError const nodes(elements, "I-1");
  Check(nodes,
        "The following elements in instance I-1 reference one or more nodes that do not exist");
  EXPECT_EQ(nodes.Elements().Length(), 2);
  Check(inp_ElementUndefinedNodesError(elements),
        "The following elements reference one or more nodes that do not exist");
  Check(inp_InvalidParameterException("A=1"));
  Check(inp_InvalidParameterValueException("v", "p"));
  inp_MissingEndQuoteException const quote("a=\"b");
  Check(quote);
  Check(inp_KeywordParameterException(7, file, "NODE", quote), nullptr, 7);
  Check(inp_UnknownKeywordException(7, file, "nod"), nullptr, 7, "nod");
  Check(inp_AmbiguousKeywordException(7, file, "el"), nullptr, 7, "el");
  Check(inp_NoInputParameterException(7, file), nullptr, 7);
  Check(inp_MissingIncludeFileException(7, file, "g"), nullptr, 7);
  Check(inp_UnreadableIncludeFileException(7, file, "g"), "Input file \"g\" is unreadable.", 7);
  Check(inp_CircularIncludeFileException(7, file, "g"), nullptr, 7);
  Check(inp_ParameterizedIncludeFileException(7, file, "<g>"), nullptr, 7);
}

TEST(inp_ParserExceptions, AMessageKeepsThePlaceThatItHas)
{
  atr_String message = atr_Say(inp_msgUnknownException);
  atr_Origin origin = *message.Origin();
  origin.line = 3;
  origin.file = "inner.inp";
  message.SetOrigin(origin);
  inp_KeywordException const fault(7, "outer.inp", message);
  EXPECT_EQ(fault.UserReport().Origin()->line, 3);
  EXPECT_EQ(fault.UserReport().Origin()->file, "inner.inp");
}

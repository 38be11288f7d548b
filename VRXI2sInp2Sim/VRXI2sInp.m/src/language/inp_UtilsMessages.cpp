#include "inp_Keyword.h"
#include "inp_Utils.h"

namespace
{

cow_String ToText(int item) { return cow_String(item); }
cow_String const& ToText(cow_String const& item) { return item; }

template <class T>
cow_String Joined(cow_List<T> const& items)
{
  cow_String joined;
  for (int i = 0; i < items.Length(); ++i)
  {
    joined.Append(i > 0 ? ", " : "").Append(ToText(items.ConstGet(i)));
  }
  return joined;
}

template <class T>
atr_String WithTitleAndList(inp_Keyword const& keyword, atr_String const& message,
                            cow_List<T> const& items)
{
  atr_String text = inp_Utils::MessageInKeyword(keyword, message);
  text.Append(":\n").Append(Joined(items));
  return text;
}

} // namespace

atr_String inp_Utils::FormTitleForMessage(inp_Keyword const& keyword)
{
  cow_String title = cow_String("in keyword *").Append(cow_String(keyword.Name()).ToUpper());
  cow_String const& file = keyword.fileName;
  if (file.Length() > 0)
  {
    int const slash = file.RFind("\\");
    title.Append(", file \"");
    title.Append(slash < file.Length() ? file.Substr(slash + 1) : file);
    title.Append("\"");
  }
  if (keyword.lineNumber != 0)
  {
    title.Append(", line ").Append(cow_String(keyword.lineNumber)).Append(":");
  }
  return atr_String(title.Append(" "));
}

atr_Origin inp_Utils::PlaceOf(inp_Keyword const& keyword)
{
  return {"", keyword.fileName, keyword.lineNumber, keyword.Name(), cow_String()};
}

atr_String inp_Utils::PlacedAt(inp_Keyword const& keyword, atr_String const& message)
{
  atr_Origin origin = PlaceOf(keyword);
  if (atr_Origin const* const known = message.Origin())
  {
    origin.code = known->code;
    origin.subject = known->subject;
  }
  atr_String placed(message);
  placed.SetOrigin(origin);
  return placed;
}

atr_String inp_Utils::MessageInKeyword(inp_Keyword const& keyword, atr_String const& message)
{
  atr_String text = FormTitleForMessage(keyword);
  text.Append(PlacedAt(keyword, message));
  return text;
}

atr_String inp_Utils::MessageInKeyword(inp_Keyword const& keyword, atr_String const& message,
                                       cow_List<int> const& items)
{
  return WithTitleAndList(keyword, message, items);
}

atr_String inp_Utils::MessageInKeyword(inp_Keyword const& keyword, atr_String const& message,
                                       cow_List<cow_String> const& items)
{
  return WithTitleAndList(keyword, message, items);
}

atr_String inp_Utils::MessageWithItems(atr_String const& message, cow_List<int> const& items)
{
  if (items.Length() == 0)
  {
    return atr_String();
  }
  atr_String text(message);
  text.Append("\n    ").Append(cow_String(items.ConstGet(0))).Append(", ").Append(Joined(items));
  return text;
}

atr_String inp_Utils::MessageWithItems(atr_String const& message, cow_List<cow_String> const& items)
{
  if (items.Length() == 0)
  {
    return atr_String();
  }
  atr_String text(message);
  text.Append("\n    ").Append(Joined(items));
  return text;
}

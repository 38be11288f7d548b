#include "rgx_Regex.h"

#include "rgx_Program.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace
{

// Patterns come from the program, not from decks, so this is a guard and not a working limit.
constexpr std::size_t mostPatterns = 256;

std::shared_ptr<rgx_Program const> Compiled(std::string_view pattern)
{
  thread_local std::map<std::string, std::shared_ptr<rgx_Program const>, std::less<>> cache;
  auto found = cache.find(pattern);
  if (found == cache.end())
  {
    if (cache.size() >= mostPatterns)
      cache.clear();
    found = cache.emplace(pattern, std::make_shared<rgx_Program const>(pattern)).first;
  }
  return found->second;
}

} // namespace

rgx_ReIterator::rgx_ReIterator(std::shared_ptr<rgx_Program const> program,
                               cow_String const& subject)
  : m_program(std::move(program)), m_subject(subject)
{
  First();
  m_matched = !m_isDone;
}

void rgx_ReIterator::Search(std::size_t from)
{
  std::string_view const text = m_subject.View();
  m_isDone = from > text.size() || !m_program->Search(text, from, m_start, m_end);
}

void rgx_ReIterator::First() { Search(0); }

void rgx_ReIterator::Next()
{
  if (m_isDone)
    return;
  // Behind an empty match the search goes on one byte further, or it would find the same match again.
  Search(m_end > m_start ? m_end : m_end + 1);
}

int rgx_ReIterator::Count() const
{
  if (m_count < 0)
  {
    rgx_ReIterator walk(*this);
    int count = 0;
    for (walk.First(); !walk.IsDone(); walk.Next())
      ++count;
    m_count = count;
  }
  return m_count;
}

cow_String rgx_ReIterator::String() const
{
  if (m_isDone)
    return cow_String();
  return m_subject.Substr(Start(), End() - Start());
}

rgx_ReIterator rgx_match(cow_String const& pattern, cow_String const& subject)
{
  return {Compiled(pattern.View()), subject};
}

rgx_ReIterator rgx_match(omn_FixedString pattern, cow_String const& subject)
{
  return {Compiled(pattern.CStr()), subject};
}

rgx_ReIterator rgx_match(char const* pattern, cow_String const& subject)
{
  return {Compiled(pattern), subject};
}

cow_List<cow_String> rgx_split(char const* separatorPattern, cow_String const& subject)
{
  cow_List<cow_String> pieces;
  int done = 0;
  for (rgx_ReIterator match = rgx_match(separatorPattern, subject); !match.IsDone(); match.Next())
  {
    if (match.End() == match.Start())
      continue;
    pieces.Append(subject.Substr(done, match.Start() - done));
    done = match.End();
  }
  pieces.Append(subject.Substr(done));
  return pieces;
}

cow_String rgx_join(cow_List<cow_String> const& pieces, cow_String const& separator)
{
  cow_String text;
  for (int i = 0; i < pieces.Length(); ++i)
  {
    if (i > 0)
      text.Append(separator);
    text.Append(pieces.ConstGet(i));
  }
  return text;
}

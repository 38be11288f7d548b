#include "inp_SuboptionSets.h"

#include "inp_KeywordTable.h"

inp_SuboptionSets::inp_SuboptionSets()
{
  for (inp_KeywordRow const* row = inp_KeywordTable::Rows(); row->name != nullptr; ++row)
  {
    for (int const* below = row->suboptions; below != nullptr && *below != 0; ++below)
    {
      m_below[row->value].Insert(*below);
    }
  }
}

omi_Set const& inp_SuboptionSets::Below(inp_KeywordEnm keyword) const
{
  auto const found = m_below.find(keyword);
  return found != m_below.end() ? found->second : m_none;
}

#include "inp_KeywordsRearranger.h"

#include "inp_KeywordEnm.h"
#include "inp_Utils.h"

#include <utility>

namespace
{

bool IsRigidSurface(inp_Keyword const& keyword)
{
  if (keyword.Is(inp_kwRigidSurface))
  {
    return true;
  }
  return keyword.Is(inp_kwSurface) &&
         inp_Utils::IsAnalyticalSurfaceType(keyword.GetParameterAsString("type", cow_String()));
}

/// The analytical surface that the keyword names.
inp_NameParameter SurfaceName(inp_Keyword const& keyword)
{
  if (keyword.Is(inp_kwRigidBody))
  {
    return keyword.ReadName("analyticalsurface");
  }
  return IsRigidSurface(keyword) ? keyword.ReadName("name") : inp_NameParameter();
}

} // namespace

void inp_KeywordsRearranger::Rearrange(cow_List<inp_Keyword>& keywords)
{
  for (int i = 0; i < keywords.Length(); ++i)
  {
    inp_Keyword const& keyword = keywords.ConstGet(i);
    if (inp_NameParameter const name = SurfaceName(keyword); name.IsGiven())
    {
      RecordPositionOfRigidKeyword(name.text, keyword, i);
    }
  }
  cow_BtreeIterator<cow_String, inp_RigidKeywordPositions> position(m_positions);
  for (position.First(); !position.IsDone(); position.Next())
  {
    inp_RigidKeywordPositions const& pair = position.CurrentValue();
    if (pair.IsOrderReversed())
    {
      inp_Keyword const surface = keywords.ConstGet(pair.ConstGetRigidSurfaceIndex());
      keywords.Get(pair.ConstGetRigidSurfaceIndex()) =
        keywords.ConstGet(pair.ConstGetRigidBodyIndex());
      keywords.Get(pair.ConstGetRigidBodyIndex()) = surface;
    }
  }
}

void inp_KeywordsRearranger::RecordPositionOfRigidKeyword(cow_String const& name,
                                                          inp_Keyword const& keyword, int index)
{
  m_positions.InsertUnlessMember(name, inp_RigidKeywordPositions(name));
  inp_RigidKeywordPositions& positions = *m_positions.Find(name);
  atr_Origin const place{"", keyword.fileName, keyword.lineNumber, keyword.Name(), name};
  if (keyword.Is(inp_kwRigidBody))
  {
    positions.InsertRigidBody(index, place);
  }
  else
  {
    positions.InsertRigidSurface(index, place);
  }
}

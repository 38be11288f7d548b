#include "inp_RigidKeywordPositions.h"

#include "inp_OrganizerMessages.h"
#include "omi_Singleton.h"
#include "wip_WIP.h"

namespace
{

void Report(atr_MessageRow<1> const& row, cow_String const& name, atr_Origin place)
{
  atr_String message = atr_Say(row, name);
  place.code = row.code;
  message.SetOrigin(place);
  omi_Singleton<wip_WIP>::Instance().Error(message, wip_passFatal);
}

} // namespace

void inp_RigidKeywordPositions::InsertRigidBody(int index, atr_Origin const& place)
{
  if (hasRigidBody)
  {
    Report(inp_msgRigidBodyRepeated, name, place);
    return;
  }
  hasRigidBody = true;
  rigidBodyIndex = index;
}

void inp_RigidKeywordPositions::InsertRigidSurface(int index, atr_Origin const& place)
{
  if (hasRigidSurface)
  {
    Report(inp_msgRigidSurfaceRepeated, name, place);
    return;
  }
  hasRigidSurface = true;
  rigidSurfaceIndex = index;
}

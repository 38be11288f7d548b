#include "inp_KwdDataReleaseVisitor.h"

#include "inp_ElementDataArrayImpl.h"
#include "inp_NodeDataArrayImpl.h"
#include "inp_RawDataArrayImpl.h"

inp_KwdDataReleaseVisitor::inp_KwdDataReleaseVisitor(bool, bool lumenCompatible)
  : m_lumenCompatible(lumenCompatible)
{
}

void inp_KwdDataReleaseVisitor::DefaultAction(inp_Keyword&) {}

template <class Rows>
void inp_KwdDataReleaseVisitor::Release(inp_Keyword& keyword)
{
  if (m_partName.Length() > 0 && !m_lumenCompatible)
  {
    keyword.data.Set(new Rows);
  }
}

void inp_KwdDataReleaseVisitor::VisitElement(inp_Keyword& keyword)
{
  Release<inp_ElementDataArrayImpl>(keyword);
}

void inp_KwdDataReleaseVisitor::VisitElset(inp_Keyword& keyword)
{
  Release<inp_RawDataArrayImpl>(keyword);
}

void inp_KwdDataReleaseVisitor::VisitNode(inp_Keyword& keyword)
{
  Release<inp_NodeDataArrayImpl>(keyword);
}

void inp_KwdDataReleaseVisitor::VisitNset(inp_Keyword& keyword)
{
  Release<inp_RawDataArrayImpl>(keyword);
}

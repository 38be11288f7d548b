#include "inp_Element.h"

#include "VRXBasException.h"
#include "inp_ParserExceptions.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

static_assert(sizeof(inp_Element) == 48, "eight nodes make a block of 80 bytes");

namespace
{
[[noreturn]] void RaiseMemory() { inp_MemoryException().Throw("inp_Element", __LINE__); }

void* Allocate(std::size_t bytes)
{
  void* const block = mem_Malloc(bytes);
  if (block == nullptr)
  {
    RaiseMemory();
  }
  return block;
}

int* AllocateNodes(int count)
{
  return static_cast<int*>(Allocate(static_cast<std::size_t>(count) * sizeof(int)));
}

int* NodesBehind(void* block)
{
  return reinterpret_cast<int*>(static_cast<char*>(block) + sizeof(inp_Element));
}

int CheckedCount(int count)
{
  VRXBasAssert(count >= 0 && count <= inp_Element::c_mostNodes, "count <= c_mostNodes");
  return count;
}

std::int16_t Short(int value)
{
  return static_cast<std::int16_t>(std::clamp<int>(value, INT16_MIN, INT16_MAX));
}
} // namespace

inp_Element::inp_Element(cow_String const& type, int count, int numNodesDefined, int nodeOffset,
                         int solidElementNumbering)
  : m_type(type),
    m_numNodesPerElement(static_cast<std::int16_t>(CheckedCount(count))),
    m_solidElementNumbering(Short(solidElementNumbering)),
    m_numNodesDefined(Short(numNodesDefined)),
    m_nodeOffset(nodeOffset)
{
}

inp_Element::inp_Element(cow_String type, cow_String file, cow_List<int> const& nodes,
                         int numNodesDefined)
  : inp_Element(std::move(type), nodes, numNodesDefined, 0, 0)
{
  setFile(file);
}

inp_Element::inp_Element(cow_String type, cow_List<int> const& nodes, int numNodesDefined,
                         int nodeOffset, int solidElementNumbering)
  : inp_Element(type, nodes.Length(), numNodesDefined, nodeOffset, solidElementNumbering)
{
  if (!nodes.Empty())
  {
    m_topology = AllocateNodes(nodes.Length());
    std::copy(nodes.begin(), nodes.end(), m_topology);
  }
}

inp_Element::inp_Element(cow_String type, int count, int const* nodes, int numNodesDefined,
                         int nodeOffset, int solidElementNumbering)
  : inp_Element(type, count, numNodesDefined, nodeOffset, solidElementNumbering)
{
  TakeNodes(count, nodes);
}

inp_Element::inp_Element(inp_Element const& other)
  : inp_Element(other.m_type, other.m_numNodesPerElement, other.m_numNodesDefined,
                other.m_nodeOffset, other.m_solidElementNumbering)
{
  setFile(other.file());
  TakeNodes(other.m_numNodesPerElement, other.m_topology);
}

// Nodes that lie in the other element's own block cannot be taken over: they are copied.
inp_Element::inp_Element(inp_Element&& other)
  : inp_Element(other.m_type, other.m_numNodesPerElement, other.m_numNodesDefined,
                other.m_nodeOffset, other.m_solidElementNumbering)
{
  std::swap(m_file, other.m_file);
  if (other.m_hasNodesBehind)
  {
    TakeNodes(other.m_numNodesPerElement, other.m_topology);
    return;
  }
  m_topology = std::exchange(other.m_topology, nullptr);
  other.m_numNodesPerElement = 0;
}

inp_Element& inp_Element::operator=(inp_Element const& other)
{
  if (this == &other)
  {
    return *this;
  }
  if (m_numNodesPerElement != other.m_numNodesPerElement)
  {
    int const count = other.m_numNodesPerElement;
    int* const fresh = count == 0 ? nullptr : AllocateNodes(count);
    FreeNodes();
    m_topology = fresh;
    m_numNodesPerElement = other.m_numNodesPerElement;
  }
  std::copy_n(other.m_topology, other.m_numNodesPerElement, m_topology);
  setFile(other.file());
  m_type = other.m_type;
  m_numNodesDefined = other.m_numNodesDefined;
  m_nodeOffset = other.m_nodeOffset;
  m_solidElementNumbering = other.m_solidElementNumbering;
  return *this;
}

inp_Element::~inp_Element()
{
  FreeNodes();
  setFile(cow_String());
}

inp_Element* inp_Element::Make(cow_String const& type, int count, int const* nodes,
                               int numNodesDefined, int nodeOffset, int solidElementNumbering)
{
  std::size_t const nodeBytes = static_cast<std::size_t>(CheckedCount(count)) * sizeof(int);
  void* const block = Allocate(sizeof(inp_Element) + nodeBytes);
  auto* const element =
    ::new (block) inp_Element(type, count, numNodesDefined, nodeOffset, solidElementNumbering);
  if (count != 0)
  {
    element->m_topology = NodesBehind(block);
    element->m_hasNodesBehind = true;
    std::copy_n(nodes, count, element->m_topology);
  }
  return element;
}

inp_Element* inp_Element::Make(inp_Element const& other)
{
  inp_Element* const element =
    Make(other.m_type, other.m_numNodesPerElement, other.m_topology, other.m_numNodesDefined,
         other.m_nodeOffset, other.m_solidElementNumbering);
  try
  {
    element->setFile(other.file());
  }
  catch (...)
  {
    delete element;
    throw;
  }
  return element;
}

void inp_Element::setFile(cow_String const& file)
{
  if (m_file != nullptr && file.Length() == 0)
  {
    std::destroy_at(m_file);
    mem_Free(std::exchange(m_file, nullptr));
  }
  else if (m_file != nullptr)
  {
    *m_file = file;
  }
  else if (file.Length() != 0)
  {
    m_file = ::new (Allocate(sizeof(cow_String))) cow_String(file);
  }
}

std::size_t inp_Element::Bytes() const
{
  std::size_t bytes = mem_UsableSize(this);
  if (m_topology != nullptr && !m_hasNodesBehind)
  {
    bytes += mem_UsableSize(m_topology);
  }
  return bytes + (m_file == nullptr ? 0 : mem_UsableSize(m_file));
}

void inp_Element::TakeNodes(int count, int const* nodes)
{
  if (count != 0)
  {
    m_topology = AllocateNodes(count);
    std::copy_n(nodes, count, m_topology);
  }
}

void inp_Element::FreeNodes()
{
  if (!m_hasNodesBehind)
  {
    mem_Free(m_topology);
  }
  m_topology = nullptr;
  m_hasNodesBehind = false;
}

#include "inp_DistributionTableDB.h"

#include "VRXBasException.h"

namespace
{

// Finalized with the keyword table.
constexpr int c_destructLevel = 9;

constexpr int c_mostLabels = 21;

struct LabelRow
{
  char const* name;
  inp_distTableLabelEnum label;
  int components;
};

constexpr LabelRow labelRows[] = {
#define INP_DIST_LABEL(stem, name, value, components) {name, inp_distLabel##stem, components},
#include "inp_DistributionTables.def"
  {nullptr, inp_distLabelUndefined, 0}};

struct TypeRow
{
  int type;
  int numLabels;
  int numComponents;
  inp_distTableLabelEnum labels[c_mostLabels];
};

// A scope in which the stems of labels stand alone.
struct ValidLists
{
#define INP_DIST_LABEL(stem, name, value, components)                                              \
  static constexpr inp_distTableLabelEnum stem = inp_distLabel##stem;
#include "inp_DistributionTables.def"

  static constexpr TypeRow rows[] = {
#define INP_DIST_TYPE(value, labels, components, ...) {value, labels, components, {__VA_ARGS__}},
#include "inp_DistributionTables.def"
    {0, 0, 0, {}}};
};

cow_String WithoutQuotes(cow_String name) { return name.LeftTrim("\"").RightTrim("\""); }

inp_distTable* NewDistTable(int numLabels, int numComponents, inp_distTableLabelEnum const* labels)
{
  return new inp_distTable{{}, nullptr, numLabels, numComponents, {labels, labels + numLabels}};
}

} // namespace

inp_DistributionTableDB::inp_DistributionTableDB() { SetDestructLevel(c_destructLevel); }

inp_DistributionTableDB::~inp_DistributionTableDB()
{
  for (omi_IntTableIterator<inp_distTable*> it(validDistTables); !it.IsDone(); it.Next())
  {
    delete it.CurrentValue();
  }
  forgetDistTables();
}

void inp_DistributionTableDB::forgetDistTables()
{
  while (head != nullptr)
  {
    inp_distTable* const next = head->next;
    delete head;
    head = next;
  }
  tail = nullptr;
  numberDistTables = 0;
  tableIds = cow_Map<cow_String, int>();
  distTables = omi_IntTable<inp_distTable*>();
  tableSizes = cow_Map<cow_String, int>();
}

void inp_DistributionTableDB::initializeValidDistTables()
{
  for (LabelRow const* row = labelRows; row->name != nullptr; ++row)
  {
    labelIds.Insert(row->name, row->label);
    labelSizes.Insert(row->label, row->components);
  }
  for (TypeRow const* row = ValidLists::rows; row->type != 0; ++row)
  {
    SetValidDistTable(static_cast<inp_distTableTypeEnum>(row->type),
                      NewDistTable(row->numLabels, row->numComponents, row->labels));
  }
}

// A later list of a type takes the place of the earlier one, which the table would forget.
void inp_DistributionTableDB::SetValidDistTable(inp_distTableTypeEnum type, inp_distTable* table)
{
  inp_distTable* earlier = nullptr;
  if (validDistTables.ConstGetValue(type, earlier))
  {
    delete earlier;
  }
  validDistTables.Insert(type, table);
}

int inp_DistributionTableDB::addDistTables(cow_String const& name, int numLabels, int numComponents,
                                           inp_distTableLabelEnum const* labels)
{
  VRXBasAssert(numLabels >= 0, "numLabels >= 0");
  cow_String const bareName = WithoutQuotes(name);
  if (tableIds.IsMember(bareName))
  {
    return 1;
  }
  inp_distTable* const table = NewDistTable(numLabels, numComponents, labels);
  (tail == nullptr ? head : tail->next) = table;
  tail = table;
  ++numberDistTables;
  tableIds.Insert(bareName, numberDistTables);
  distTables.Insert(numberDistTables, table);
  return 0;
}

inp_distTable const* inp_DistributionTableDB::FindDistTable(cow_String const& name) const
{
  int const* const number = tableIds.ConstFind(WithoutQuotes(name));
  return number == nullptr ? nullptr : distTables.ConstGet(*number);
}

int inp_DistributionTableDB::getDistTableSize(cow_String const& name, int& found) const
{
  inp_distTable const* const table = FindDistTable(name);
  found = table != nullptr;
  return table == nullptr ? 0 : table->numLabels;
}

int inp_DistributionTableDB::getNumComponentsDistTable(cow_String const& name, int& found) const
{
  inp_distTable const* const table = FindDistTable(name);
  found = table != nullptr;
  return table == nullptr ? 0 : table->numComponents;
}

inp_distTableLabelEnum inp_DistributionTableDB::getTableLabelID(cow_String name) const
{
  int const* const label = labelIds.ConstFind(name.ToUpper());
  return label == nullptr ? inp_distLabelUndefined : static_cast<inp_distTableLabelEnum>(*label);
}

int inp_DistributionTableDB::getdistTableLabelEnumSize(inp_distTableLabelEnum label) const
{
  int const* const components = labelSizes.ConstFind(label);
  return components == nullptr ? 0 : *components;
}

void inp_DistributionTableDB::setTableSize(cow_String const& name, int const& size)
{
  cow_String const bareName = WithoutQuotes(name);
  if (!tableSizes.IsMember(bareName))
  {
    tableSizes.Insert(bareName, size);
  }
}

int inp_DistributionTableDB::getTableSize(cow_String const& name) const
{
  int const* const size = tableSizes.ConstFind(WithoutQuotes(name));
  return size == nullptr ? 0 : *size;
}

int inp_DistributionTableDB::validateDistTable(inp_distTableTypeEnum type,
                                               cow_String const& name) const
{
  inp_distTable* valid = nullptr;
  if (!validDistTables.ConstGetValue(type, valid))
  {
    return 1;
  }
  inp_distTable const* const declared = FindDistTable(name);
  if (declared == nullptr)
  {
    return 2;
  }
  if (declared->numLabels != valid->numLabels)
  {
    return 3;
  }
  return declared->labels == valid->labels ? 0 : 4;
}

#include "srv_DistributionTables.h"

#include "inp_DistributionTableDB.h"
#include "inp_KeywordEnm.h"

#include <vector>

namespace
{

/// Of each row up to its first empty field.
std::vector<inp_distTableLabelEnum> ColumnsOf(inp_DataArray const& data,
                                              inp_DistributionTableDB const& tables)
{
  std::vector<inp_distTableLabelEnum> columns;
  for (int row = 0; row < data.Rows(); ++row)
  {
    for (int field = 0; data.HasValue(row, field); ++field)
    {
      columns.push_back(tables.getTableLabelID(data.AsString(row, field)));
    }
  }
  return columns;
}

void Declare(inp_Keyword const& keyword, inp_DistributionTableDB& tables)
{
  inp_Item const* const name = keyword.parameters.ConstFind("name");
  if (name == nullptr)
  {
    return;
  }
  std::vector<inp_distTableLabelEnum> const columns = ColumnsOf(keyword.data, tables);
  int components = 0;
  for (inp_distTableLabelEnum const column : columns)
  {
    components += tables.getdistTableLabelEnumSize(column);
  }
  tables.addDistTables(name->AsString(), static_cast<int>(columns.size()), components,
                       columns.data());
}

} // namespace

void srv_DeclareDistributionTables(cow_List<inp_Keyword> const& keywords)
{
  auto& tables = thr_ThreadSingleton<inp_DistributionTableDB>::Instance();
  tables.initializeValidDistTables();
  for (inp_Keyword const& keyword : keywords)
  {
    if (keyword.Is(inp_kwDistributionTable))
    {
      Declare(keyword, tables);
    }
  }
}

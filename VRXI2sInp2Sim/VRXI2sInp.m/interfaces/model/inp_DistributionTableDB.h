#pragma once

#include "cow_Map.h"
#include "cow_String.h"
#include "mem_Allocation.h"
#include "omi_IntTable.h"
#include "thr_ThreadSingleton.h"

#include <vector>

/// The kinds of columns of a distribution table. Two names may have one value.
enum inp_distTableLabelEnum : int
{
#define INP_DIST_LABEL(stem, name, value, components) inp_distLabel##stem = value,
#include "inp_DistributionTables.def"
};

/// The kinds of use of a distribution, inp_distType1 and so on. Every int is a value; those that
/// are not named have no valid list.
enum inp_distTableTypeEnum : int
{
#define INP_DIST_TYPE(value, labels, components, ...) inp_distType##value = value,
#define INP_DIST_TYPE_AGAIN(value, labels, components, ...)
#include "inp_DistributionTables.def"
  inp_distTypeCoordinateSystem = inp_distType7 ///< two points
};

/// A list of columns: one that the deck declares, or one that a kind of use takes.
struct inp_distTable : mem_AllocationOperators
{
  inp_distTable* next; ///< the table declared after this one; not owned
  int numLabels;
  int numComponents; ///< numbers of all columns together
  std::vector<inp_distTableLabelEnum> labels;
};

/// What a thread knows of distribution tables: the kinds of columns, the lists of columns that are
/// valid for each kind of use, the tables declared so far, and how many items each of them holds.
///
/// Reached as thr_ThreadSingleton<inp_DistributionTableDB>::Instance(). Nothing is parsed here:
/// visitors and the driver feed it, and what it holds stays until a deck is parsed, or the thread ends or
/// finalizes it. Double quotes at both ends of a table's name are no part of the name.
class inp_DistributionTableDB : public thr_ThreadSingletonBase<inp_DistributionTableDB>
{
public:
  inp_DistributionTableDB();
  ~inp_DistributionTableDB();

  /// Fills in the kinds of columns and the valid lists; until then there are none. To be called
  /// once; again has no effect.
  void initializeValidDistTables();

  /// Declares a table; `numLabels`, 0 or more, of `labels` are copied. Nonzero, and no change, when
  /// the name is declared.
  int addDistTables(cow_String const& name, int numLabels, int numComponents,
                    inp_distTableLabelEnum const* labels);
  /// Back to no table, declared or of recorded size: a new deck begins. What is valid stays.
  void forgetDistTables();
  /// Labels of a declared table. `found` becomes 1, or 0 with the result 0.
  int getDistTableSize(cow_String const& name, int& found) const;
  /// Components of a declared table. `found` becomes 1, or 0 with the result 0.
  int getNumComponentsDistTable(cow_String const& name, int& found) const;
  /// How many tables are declared.
  int getNumberDistTable() const { return numberDistTables; }

  /// The kind of column that goes by a name, in either case; inp_distLabelUndefined for an unknown
  /// one.
  inp_distTableLabelEnum getTableLabelID(cow_String name) const;
  /// Components of a kind of column, 0 for an unknown one.
  int getdistTableLabelEnumSize(inp_distTableLabelEnum label) const;

  /// Records a table's item count, declared or not. The first record of a name stands.
  void setTableSize(cow_String const& name, int const& size);
  /// 0 when none is recorded.
  int getTableSize(cow_String const& name) const;

  /// Whether a declared table has the columns that a kind of use takes: 0 it has, 1 there is no
  /// valid list for the type, 2 the table is not declared, 3 the number of labels differs, 4 a
  /// label differs.
  int validateDistTable(inp_distTableTypeEnum type, cow_String const& name) const;

private:
  void SetValidDistTable(inp_distTableTypeEnum type, inp_distTable* table);
  inp_distTable const* FindDistTable(cow_String const& name) const;

  omi_IntTable<inp_distTable*> validDistTables; ///< by type; owns
  cow_Map<cow_String, int> labelIds;
  cow_Map<int, int> labelSizes;
  inp_distTable* head = nullptr; ///< the declared tables, first to last; owns
  inp_distTable* tail = nullptr;
  cow_Map<cow_String, int> tableIds; ///< name to number, from 1
  int numberDistTables = 0;
  omi_IntTable<inp_distTable*> distTables; ///< by number
  cow_Map<cow_String, int> tableSizes;
};

#pragma once

#include "cow_List.h"
#include "inp_InputFile.h"
#include "inp_Keyword.h"

#include <map>
#include <string>
#include <vector>

/// What the keywords of a deck are, counted.
struct srv_KeywordCensus
{
  struct Step
  {
    std::string name;
    std::string procedure; ///< "*STATIC"; "" for a step without one
  };

  int keywords = 0;
  int nodeRows = 0;
  int elementRows = 0;
  std::map<int, int> kinds; ///< by value of the keyword
  std::map<std::string, int> elementTypes;
  std::vector<std::string> parts;
  std::vector<std::string> materials;
  std::vector<Step> steps;

  int Of(inp_KeywordEnm kind) const
  {
    auto const found = kinds.find(kind);
    return found != kinds.end() ? found->second : 0;
  }
};

srv_KeywordCensus srv_CountKeywords(cow_List<inp_Keyword> const& keywords);

/// What the maps of a model hold, counted.
struct srv_MeshCensus
{
  /// Where names are given: once in a part, and again wherever an instance or the assembly adds some.
  struct Names
  {
    int inParts = 0;
    int inInstances = 0; ///< beyond those of the instance's part
    int inAssembly = 0;

    int All() const { return inParts + inInstances + inAssembly; }
  };

  int nodes = 0; ///< of instances and assembly
  int partNodes = 0;
  int elements = 0; ///< of instances and assembly
  std::map<std::string, int> elementTypes;
  Names nodeSets;
  Names elementSets;
  Names surfaces;
};

srv_MeshCensus srv_CountMesh(inp_InputFile const& model);

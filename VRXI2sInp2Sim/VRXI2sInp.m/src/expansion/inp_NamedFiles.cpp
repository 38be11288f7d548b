#include "inp_NamedFiles.h"

#include "inp_ExpansionRules.h"
#include "inp_FileParameters.h"
#include "inp_Keyword.h"
#include "inp_KeywordEnm.h"
#include "inp_Utils.h"
#include "omi_Singleton.h"
#include "utl_CommandLine.h"

#include <string_view>

namespace
{

/// The parameter, as spelled, names a file. Most are told by their first letter.
bool NamesFile(inp_ExpansionRule const& rule, std::string_view spelled)
{
  constexpr std::string_view initials = "ifdl";
  if (spelled.empty() || initials.find(spelled.front()) == std::string_view::npos)
  {
    return false;
  }
  char const* const full = inp_MatchParameter(rule.parameters, spelled).name;
  return full != nullptr && inp_IsFileParameter(full);
}

/// Collects the files that are there.
class Files
{
public:
  explicit Files(cow_String const& includePath) : m_includePath(includePath) {}

  void Add(cow_String const& directory, cow_String const& name)
  {
    VRXBasUtlFilePath const path = inp_LookForFile(directory, name, m_includePath);
    if (path.Exists())
    {
      m_paths.Append(path.AbsolutePathName());
    }
  }

  void AddWritten(cow_String const& value)
  {
    Add(cow_String(), inp_Utils::WithoutQuotes(inp_Utils::TakeOutSpacesOutsideQuoted(value)));
  }

  cow_List<cow_String> const& Paths() const { return m_paths; }

private:
  cow_String m_includePath;
  cow_List<cow_String> m_paths;
};

void AddParameters(Files& files, inp_Keyword const& keyword, inp_ExpansionRule const& rule)
{
  cow_ConstMapIterator<cow_String, inp_Item> parameter(keyword.parameters);
  for (parameter.First(); !parameter.IsDone(); parameter.Next())
  {
    inp_Item const& value = parameter.CurrentValue();
    if (!value.HasNoValue() && NamesFile(rule, parameter.CurrentKey().View()))
    {
      files.AddWritten(value.AsString());
    }
  }
}

void AddDecks(Files& files, inp_Keyword const& manifest)
{
  inp_DataArray const& data = manifest.data;
  for (int row = 0; row < data.Rows(); ++row)
  {
    if (data.Type(row, 0) == inp_Types::inp_STRING)
    {
      files.Add(inp_ManifestDirectory(), inp_ManifestDeckName(data.AsStringVerbatim(row, 0)));
    }
  }
}

} // namespace

VRXBasUtlFilePath inp_LookForFile(cow_String const& directory, cow_String const& file,
                                  cow_String const& includePath)
{
  VRXBasUtlFilePath path(directory, file);
  if (!path.Exists())
  {
    path.SetFilePath(includePath, file);
  }
  return path;
}

cow_String inp_ManifestDeckName(cow_String const& written)
{
  cow_String name = inp_Utils::WithoutQuotes(written);
  if (!(VRXBasUtlFilePath(inp_ManifestDirectory(), name).Extension() == ".inp"))
  {
    name.Append(".inp");
  }
  return name;
}

cow_String inp_ManifestDirectory()
{
  return omi_Singleton<utl_CommandLine>::Instance().Option("indir");
}

cow_List<cow_String> inp_NamedFiles(cow_List<inp_Keyword> const& keywords,
                                    cow_List<cow_String> const& furtherNames,
                                    cow_String const& includePath)
{
  Files files(includePath);
  for (cow_String const& name : furtherNames)
  {
    files.AddWritten(name);
  }
  for (inp_Keyword const& keyword : keywords)
  {
    inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(keyword.keyword);
    if (rule != nullptr)
    {
      AddParameters(files, keyword, *rule);
    }
    if (keyword.Is(inp_kwManifest))
    {
      AddDecks(files, keyword);
    }
  }
  return files.Paths();
}

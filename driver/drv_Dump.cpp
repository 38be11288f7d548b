#include "drv_Dump.h"

#include "drv_Job.h"
#include "drv_Output.h"
#include "srv_JsonWriter.h"
#include "srv_MapOutput.h"

namespace
{

class Dumper
{
public:
  explicit Dumper(drv_Output& output)
    : m_output(output), m_json(output.Buffer(), srv_JsonWriter::spaced)
  {
  }

  void Dump(drv_Job& job);

private:
  void DumpRecords(drv_Job& job);
  void DumpNames(cow_List<cow_String> const& names);
  void DumpKeywords(cow_List<inp_Keyword> const& keywords, int indent);
  void DumpKeyword(inp_Keyword const& keyword, int indent);
  void DumpParameters(inp_Keyword const& keyword);
  void DumpValue(inp_Item const& item);
  void DumpData(inp_DataArray const& data, int indent);

  drv_Output& m_output;
  srv_JsonWriter m_json;
};

void Dumper::Dump(drv_Job& job)
{
  m_json.BeginObject();
  if (job.What() != drv_maps)
  {
    m_json.Key("stage").String(drv_StageName(job.Stage())).Break(1);
  }
  m_json.Key("featureEnhanced").Bool(job.Model().featureEnhanced);
  if (job.What() != drv_maps)
  {
    DumpRecords(job);
  }
  if (job.What() != drv_keywords)
  {
    srv_WriteMaps(job.Model(), m_json, m_output);
  }
  m_json.EndObject();
  m_output.Write("\n");
}

void Dumper::DumpRecords(drv_Job& job)
{
  inp_InputFile const& model = job.Model();
  m_json.Break(1).Key("includedFiles");
  DumpNames(model.readerFacts.includedFiles);
  m_json.Key("missingIncludeFiles");
  DumpNames(model.readerFacts.missingIncludeFiles);
  m_json.Break(1).Key("keywords");
  DumpKeywords(model.keywords, 3);
}

void Dumper::DumpNames(cow_List<cow_String> const& names)
{
  m_json.BeginArray();
  for (cow_String const& name : names)
  {
    m_json.String(name.View());
  }
  m_json.EndArray();
}

void Dumper::DumpKeywords(cow_List<inp_Keyword> const& keywords, int indent)
{
  m_json.BeginArray();
  for (inp_Keyword const& keyword : keywords)
  {
    m_json.Break(indent);
    DumpKeyword(keyword, indent);
    m_output.Relieve();
  }
  m_json.EndArray();
}

void Dumper::DumpKeyword(inp_Keyword const& keyword, int indent)
{
  m_json.BeginObject().Key("name").String(keyword.Name().View());
  m_json.Key("value").Number(static_cast<int>(keyword.keyword));
  m_json.Key("file").String(keyword.fileName.View()).Key("line").Number(keyword.lineNumber);
  m_json.Key("encrypted").Bool(keyword.encrypted).Key("comments");
  DumpNames(keyword.comments);
  m_json.Break(indent + 1).Key("parameters");
  DumpParameters(keyword);
  m_json.Break(indent + 1).Key("data");
  DumpData(keyword.data, indent + 10);
  m_json.Break(indent + 1).Key("suboptions");
  DumpKeywords(keyword.suboptions, indent + 3);
  m_json.EndObject();
}

void Dumper::DumpParameters(inp_Keyword const& keyword)
{
  m_json.BeginArray();
  cow_ConstMapIterator<cow_String, inp_Item> parameter(keyword.parameters);
  for (parameter.First(); !parameter.IsDone(); parameter.Next())
  {
    m_json.BeginObject().Key("name").String(parameter.CurrentKey().View());
    DumpValue(parameter.CurrentValue());
    m_json.EndObject();
  }
  m_json.EndArray();
}

void Dumper::DumpValue(inp_Item const& item)
{
  m_json.Key("type");
  switch (item.Type())
  {
  case inp_Types::inp_INTEGER:
    m_json.String("integer").Key("value").Number(item.AsInt());
    return;
  case inp_Types::inp_BOOLEAN:
    m_json.String("boolean").Key("value").Bool(item.AsBool());
    return;
  case inp_Types::inp_REAL:
    m_json.String("real").Key("value").Number(item.AsDouble());
    return;
  case inp_Types::inp_STRING:
    m_json.String("string").Key("value").String(item.AsString().View());
    return;
  case inp_Types::inp_NONE:
    m_json.String("none").Key("value").Null();
    return;
  }
}

void Dumper::DumpData(inp_DataArray const& data, int indent)
{
  m_json.BeginArray();
  int const rows = data.Rows();
  for (int row = 0; row < rows; ++row)
  {
    if (row > 0)
    {
      m_json.Break(indent);
    }
    m_json.BeginArray();
    int const columns = data.Cols(row);
    for (int column = 0; column < columns; ++column)
    {
      cow_String const text = data.AsStringVerbatim(row, column);
      bool const isBlank = text == "0" && data.IsNone(row, column); // among numbers
      m_json.String(isBlank ? "" : text.View());
    }
    m_json.EndArray();
    m_output.Relieve();
  }
  m_json.EndArray();
}

} // namespace

void drv_Dump(drv_Job& job, drv_Output& output) { Dumper(output).Dump(job); }

#pragma once

#include "inp_InputFile.h"

class srv_JsonWriter;
class srv_TextOutput;

/// Writes the members of a JSON object that holds the model's maps: parts, instances, the assembly,
/// positions and ids. A node, an element or a set a line, put together while it is written, so that
/// memory does not grow with the model.
///
/// `partElements` are the parts' elements, which the model may have given up by now.
void srv_WriteMaps(inp_InputFile const& model,
                   inpM_InstanceMap<inp_MapInt2Element> const& partElements, srv_JsonWriter& json,
                   srv_TextOutput& output);

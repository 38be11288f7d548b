#pragma once

#include "inp_InputFile.h"

class srv_JsonWriter;
class srv_TextOutput;

/// Writes the members of a JSON object that holds the model's maps: parts, instances, the assembly,
/// positions and ids. A node, an element or a set a line, put together while it is written, so that
/// memory does not grow with the model.
///
/// Parts show no elements once the model has given these up, in inp_InputFile::CheckOutOfPlace.
void srv_WriteMaps(inp_InputFile const& model, srv_JsonWriter& json, srv_TextOutput& output);

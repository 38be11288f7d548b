#pragma once

/// The keywords of the deck language: one enumerator inp_kw<stem> for each row of inp_Keywords.def.
/// The values are part of the interface: data of other programs hold them.
enum inp_KeywordEnm : int
{
#define INP_KEYWORD(stem, name, value) inp_kw##stem = value,
#include "inp_Keywords.def"
};

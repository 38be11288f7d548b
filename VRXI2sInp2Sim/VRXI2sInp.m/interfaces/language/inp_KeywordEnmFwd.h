#pragma once

/// The type alone, for headers: who names a keyword includes inp_KeywordEnm.h and is compiled anew
/// when one is added.
enum inp_KeywordEnm : int;

#pragma once

class drv_Output;
struct drv_Options;

/// Writes the vocabulary of the deck language, or what there is to know of one keyword, for people
/// or as JSON. Raises drv_Failure for a name that stands for no keyword or for several.
void drv_ShowLanguage(drv_Options const& options, drv_Output& output);

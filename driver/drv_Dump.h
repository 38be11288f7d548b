#pragma once

class drv_Job;
class drv_Output;

/// Writes as JSON what the options ask for: the records of all keywords, a row of data a line, the
/// maps, or both. All is put together while it is written, so that memory does not grow with the deck.
void drv_Dump(drv_Job& job, drv_Output& output);

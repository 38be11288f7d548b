#pragma once

class drv_Job;
class drv_Output;

/// Writes the records of all keywords as JSON, a row of data a line. A record is put together while
/// it is written, so that memory does not grow with the deck.
void drv_DumpKeywords(drv_Job& job, drv_Output& output);

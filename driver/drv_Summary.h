#pragma once

#include <string>

class drv_Job;

/// What the deck holds, and how many findings there are, on one screen of 80 columns.
std::string drv_Summary(drv_Job& job);

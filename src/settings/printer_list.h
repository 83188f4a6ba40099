#pragma once
// The printers the user's system profile names, as the system parameters page offers them for
// graphics output: one item "<name>,<value>" per key of section "DEVICES" (for example
// "HP LaserJet 4250,winspool,LPT1:"), in the profile's order. The graphics printer
// ("Printer" of "GraphOutput") holds one such item.

#include <string>
#include <vector>

namespace wk {

// Empty when the profile names no printer.
std::vector<std::string> ReadPrinterList();

// The position of the item equal to `printer` without regard to case, or 0 when none is
// (and when `printer` is empty): a printer that is no longer installed gives way to the first
// one, whichever printer the system's default device names.
int PrinterPosition(const std::vector<std::string>& printers, const std::string& printer);

}  // namespace wk

#pragma once
// The pages of the main window, declared once: the program's entry and the screenshot tool hand
// this table to TKestelMainWind, which builds the page control, the menu entries, help, OK and
// the refresh rules from it. Tests may hand the window any part of it.

#include <span>

#include "shell/page_host.h"

namespace wk {

// In tab order, which is also the order of initialisation at first activation.
std::span<const PageEntry> PageTable();

}  // namespace wk

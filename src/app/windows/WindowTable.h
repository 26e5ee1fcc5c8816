#pragma once

/// Every window of the suite by its name, registered with Forms.
namespace WindowTable {

void registerAll();

} // namespace WindowTable

// Parsing of the number lists and ranges that the command line takes: "1-30,45", "10:200".
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace dv::cli {

// The numbers of a list of items "N" or "A-B", each within lo..hi, ascending and without
// repetition. Empty on a malformed list, with the reason in error.
std::optional<std::vector<int>> LeggiLista(const std::string& text, int lo, int hi, std::string& error);

// "MIN:MAX" with both limits as whole numbers within lo..hi and MIN <= MAX.
std::optional<std::pair<int, int>> LeggiIntervallo(const std::string& text, int lo, int hi, std::string& error);

} // namespace dv::cli

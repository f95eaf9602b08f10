// What the web server computes rather than serves as it stands. No Qt.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dv::server {

// The date of a draw line as YYYYMMDD, when the line's first field is a date "dd/mm/yyyy" (the
// separators of the archive's text format split the fields); nothing for other lines.
std::optional<int> DataRigaEstrazione(std::string_view line);

// The parameter "dal" as YYYYMMDD, or nothing when it is not eight digits of a real date.
std::optional<int> DataParametro(std::string_view dal);

// The archive text keeping only the draw lines dated dal or later; every other line passes.
std::string FiltraArchivioDal(std::string_view archivio, int dal);

// The path below the data folder that a request's path names, or nothing when the path leaves the
// folder or holds anything but plain names: every segment must be a safe file name.
std::optional<std::string> PercorsoRelativoSicuro(std::string_view requestPath);

} // namespace dv::server

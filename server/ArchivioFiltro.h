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

// The same filter fed piece by piece, so that a large archive is never held whole: the output of
// all pieces plus fine() equals FiltraArchivioDal of their concatenation, wherever the cuts fall.
// It keeps at most the first few bytes of the current line, enough to read its date.
class FiltroArchivioDal {
public:
    explicit FiltroArchivioDal(int dal) : m_dal(dal) {}
    // Appends to out the filtered text of this piece that is already decided.
    void aggiungi(std::string_view pezzo, std::string& out);
    // Appends what is left of a last line without a line break.
    void fine(std::string& out);

private:
    void decidi(std::string& out);

    int m_dal;
    std::string m_inizio;  // the start of the current line while its fate is open
    bool m_deciso = false; // the current line is kept or dropped as m_tieni says
    bool m_tieni = false;
};

// The path below the data folder that a request's path names, or nothing when the path leaves the
// folder or holds anything but plain names: every segment must be a safe file name, and none may
// begin with "." (hidden files and folders are never served).
std::optional<std::string> PercorsoRelativoSicuro(std::string_view requestPath);

} // namespace dv::server

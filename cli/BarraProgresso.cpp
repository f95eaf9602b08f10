#include "cli/BarraProgresso.h"

#include "core/Helpers.h"

#include <string>
#include <unistd.h>

namespace dv::cli {

namespace {
constexpr auto Attesa = std::chrono::milliseconds(400);
constexpr int Larghezza = 30;
} // namespace

BarraProgresso::BarraProgresso(std::FILE* out, char sep)
    : m_out(out), m_terminale(isatty(fileno(out)) != 0), m_sep(sep) {}

void BarraProgresso::started(double) { m_inizio = std::chrono::steady_clock::now(); }

void BarraProgresso::progress(const ProgressInfo& info) {
    if (!m_terminale || std::chrono::steady_clock::now() - m_inizio < Attesa) return;
    const int pieni = info.bar * Larghezza / 100;
    const std::string barra = std::string(static_cast<size_t>(pieni), '#') + std::string(static_cast<size_t>(Larghezza - pieni), '.');
    std::fprintf(m_out, "\r[%s] %3d%%  %s /%s  kept%s ", barra.c_str(), info.bar, FormatContatore(info.counter, m_sep).c_str(),
                 FormatContatore(info.total, m_sep).c_str(), FormatContatore(info.kept, m_sep).c_str());
    std::fflush(m_out);
    m_disegnata = true;
}

void BarraProgresso::limitReached(const ProgressInfo& info) {
    progress(info);
    chiudi();
}

void BarraProgresso::chiudi() {
    if (!m_disegnata) return;
    std::fprintf(m_out, "\r%*s\r", Larghezza + 60, "");
    std::fflush(m_out);
    m_disegnata = false;
}

} // namespace dv::cli

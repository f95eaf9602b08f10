// Reads an HTTP/1.1 response as it arrives: the status line and headers, then a body framed by
// Content-Length, by chunks, or by the end of the connection. Knows whether the body came whole,
// so that a connection cut at any point is told from a complete answer. Bounds every line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dv {

class RispostaHttp {
public:
    enum class Stato {
        Testa,     // reading the status line and headers
        Corpo,     // reading the body
        Completa,  // the whole body is there
        Malformata // not an HTTP response, or a line above the bounds
    };

    // Bounds of the head and of a chunk's size line with its extensions.
    static constexpr size_t MaxTesta = 32 * 1024;
    static constexpr size_t MaxRigaChunk = 1024;

    // Feeds the bytes that arrived; the body's bytes among them are appended to corpo.
    Stato aggiungi(std::string_view dati, std::string& corpo);
    // The connection ended: Completa when the body is framed by the end of the connection,
    // otherwise the state stays what it was (Testa or Corpo: the answer was cut).
    Stato chiusa();

    Stato stato() const { return m_stato; }
    int status() const { return m_status; }
    int64_t contentLength() const { return m_length; } // -1 when not given
    const std::string& location() const { return m_location; }

private:
    Stato analizzaTesta();
    Stato corpoChunk(std::string_view& dati, std::string& corpo);
    // Moves up to m_resto bytes of dati into corpo; true when none is left to come.
    bool prendi(std::string_view& dati, std::string& corpo);

    enum class Chunk { Riga, Dati, FineDati, Trailer };
    Stato m_stato = Stato::Testa;
    std::string m_buffer; // the head, or a chunk's size line, or trailer lines
    int m_status = 0;
    int64_t m_length = -1;
    bool m_chunked = false;
    bool m_finoAllaChiusura = false;
    std::string m_location;
    Chunk m_chunk = Chunk::Riga;
    int64_t m_resto = 0; // bytes left of the body or of the chunk
};

} // namespace dv

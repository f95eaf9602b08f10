// Print operations on Qt's painting: a printer chosen by its device name, a PDF file, or the
// printer that a preview dialog hands over. Lengths in the job's units become device pixels;
// text is placed with its top at the current position, as a printer places it, and the line
// height is the font's own line spacing on the device. Where a layout's font is missing a
// free font of similar shape and size stands in (see FamiglieFont).
//
// Pages are streamed: a page is started only when something is drawn on it, so a page that
// receives nothing before the end of the job is never emitted, and no page is held in memory.
#pragma once

#include "print/OperazioniStampa.h"
#include "print/StampantePdf.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QPagedPaintDevice;
class QPainter;
class QPdfWriter;
class QPrinter;

namespace dv {

// The families tried for a layout's font, the layout's own first.
QStringList FamiglieFont(const std::string& nome);

// The picture that a listing paints by name ("logoColor", "logoBW", "vietatoColor", "vietatoBW");
// a null image for an unknown name.
QImage ImmagineStampa(const std::string& nome);

class StampanteQt : public OperazioniStampa {
public:
    // device must outlive the renderer; painting begins at the first drawing.
    explicit StampanteQt(QPagedPaintDevice& device);
    ~StampanteQt() override;
    StampanteQt(const StampanteQt&) = delete;
    StampanteQt& operator=(const StampanteQt&) = delete;

    // Ends the painting: the printer's job is sent or the file complete. False when the device
    // could not be painted on.
    bool chiudi();
    // Pages emitted so far.
    int pagineEmesse() const { return m_pagine; }
    bool errore() const { return m_errore; }

protected:
    void suUnita(UnitaStampa u) override;
    void suFont(const FontStampa& f) override;
    void suPosizione(double x, double y) override;
    void suTesto(double x, double y, std::string_view s, bool aCapo) override;
    void suRiquadro(double x1, double y1, double x2, double y2) override;
    void suImmagine(std::string_view nome, double x, double y) override;
    void suNuovaPagina() override;
    void suFine() override;
    double altezzaRiga() override;
    double larghezzaTesto(std::string_view s) override;

private:
    // The painter on the current page, the page started first when one is pending.
    QPainter* pittore();
    // Draws the run of text not yet drawn.
    void scriviRiga();
    double px(double v) const { return v * m_fattore; }

    QPagedPaintDevice& m_device;
    std::unique_ptr<QPainter> m_painter;
    bool m_paginaInAttesa = false;
    bool m_errore = false;
    int m_pagine = 0;
    double m_dpi = 600;
    double m_fattore = 600.0 / 1440.0;
    // Fonts and their metrics on the device, made once for each name, size and weight: a job
    // switches fonts on every slip. Widths of the short texts a listing repeats are kept too.
    struct FontPronto {
        QFont font;
        QFontMetricsF metriche;
        QHash<QString, double> larghezze;
    };
    QHash<QString, std::shared_ptr<FontPronto>> m_fonts;
    FontPronto* m_corrente = nullptr;
    // Consecutive texts of one line are drawn as one run.
    QString m_riga;
    double m_rigaX = 0;
    double m_rigaY = 0;
    QHash<QString, QImage> m_immagini;
};

class DispositivoSalvataggio;

// A print job on a real printer, a PDF file, or a printer given by a dialog, with its renderer.
class LavoroStampa {
public:
    ~LavoroStampa();
    // A PDF file of A4 pages, origin at the sheet's corner; written beside path and put in place
    // by concludi().
    static std::unique_ptr<LavoroStampa> pdf(const std::string& path);
    // The printer whose device name is nome, or the default printer when none has that name
    // (none at all: null). Normal quality prints at the printer's resolution, low at 300 dpi.
    static std::unique_ptr<LavoroStampa> stampante(const std::string& nome, bool qualitaNormale);
    // The printer of a dialog (the preview's).
    static std::unique_ptr<LavoroStampa> su(QPrinter& printer);

    OperazioniStampa& operazioni() { return *m_renderer; }
    // Ends the job; false with a message when the printer or the file failed.
    bool concludi(std::string& errore);
    int pagine() const { return m_renderer->pagineEmesse(); }

private:
    LavoroStampa() = default;
    std::unique_ptr<QPrinter> m_printer;
    std::unique_ptr<DispositivoSalvataggio> m_file; // the PDF's save, outliving its writer
    std::unique_ptr<QPdfWriter> m_pdf;
    std::unique_ptr<StampanteQt> m_renderer;
    std::string m_path;
};

// The device names of the printers, and "PDF" behind them unless a printer bears that name.
std::vector<std::string> ElencoStampantiConPdf();

} // namespace dv

#include "platform/StampanteQt.h"

#include "platform/DispositivoSalvataggio.h"
#include "settings/ScritturaSicura.h"

#include <QFile>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

#include <mutex>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace dv {

namespace {

// Tabs become blanks up to the next multiple of eight characters.
QString Espandi(std::string_view s) {
    QString t = QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
    if (!t.contains(QLatin1Char('\t'))) return t;
    QString out;
    for (QChar ch : t) {
        if (ch == QLatin1Char('\t'))
            out += QString(8 - out.size() % 8, QLatin1Char(' '));
        else
            out += ch;
    }
    return out;
}

// Qt's PDF engine allocates and frees large buffers on every page. With the C library's default
// thresholds each of them is mapped from the system and given back at once, which costs ten
// times the painting; past 64 MB the heap is trimmed as before.
void ImpostaAllocatore() {
#if defined(__GLIBC__)
    static std::once_flag once;
    std::call_once(once, [] {
        mallopt(M_MMAP_THRESHOLD, 64 << 20);
        mallopt(M_TRIM_THRESHOLD, 64 << 20);
    });
#endif
}

} // namespace

QStringList FamiglieFont(const std::string& nome) {
    QStringList f{QString::fromStdString(nome)};
    // Free fonts of Debian of similar shape; Liberation Sans has the metrics of "Arial".
    if (nome == "Consolas")
        f << QStringLiteral("Inconsolata") << QStringLiteral("DejaVu Sans Mono")
          << QStringLiteral("Monospace");
    else if (nome == "Comic Sans MS")
        f << QStringLiteral("Comic Neue") << QStringLiteral("DejaVu Sans");
    else if (nome == "Arial")
        f << QStringLiteral("Liberation Sans") << QStringLiteral("DejaVu Sans");
    return f;
}

QImage ImmagineStampa(const std::string& nome) {
    return QImage(QStringLiteral(":/stampa/%1.png").arg(QString::fromStdString(nome)));
}

StampanteQt::StampanteQt(QPagedPaintDevice& device) : m_device(device) {
    ImpostaAllocatore();
    m_dpi = device.logicalDpiY() > 0 ? device.logicalDpiY() : 600;
    suUnita(UnitaStampa::Twips);
    suFont(fontCorrente());
}

StampanteQt::~StampanteQt() {
    chiudi();
}

QPainter* StampanteQt::pittore() {
    if (m_errore) return nullptr;
    if (!m_painter) {
        m_painter = std::make_unique<QPainter>();
        if (!m_painter->begin(&m_device)) {
            m_errore = true;
            m_painter.reset();
            return nullptr;
        }
        m_painter->setPen(QPen(Qt::black, 1));
        m_painter->setBrush(Qt::black);
        m_painter->setFont(m_corrente->font);
        m_pagine = 1;
        m_paginaInAttesa = false;
    } else if (m_paginaInAttesa) {
        m_device.newPage();
        ++m_pagine;
        m_paginaInAttesa = false;
    }
    return m_painter.get();
}

bool StampanteQt::chiudi() {
    scriviRiga();
    if (m_painter) {
        if (m_painter->isActive() && !m_painter->end()) m_errore = true;
        m_painter.reset();
    }
    return !m_errore;
}

void StampanteQt::suUnita(UnitaStampa u) {
    scriviRiga();
    m_fattore = m_dpi / (u == UnitaStampa::Twips ? 1440.0 : 25.4);
}

void StampanteQt::suFont(const FontStampa& f) {
    scriviRiga();
    const QString chiave = QString::fromStdString(f.nome) + QLatin1Char('/') + QString::number(f.punti) +
                           (f.grassetto ? "/b" : "/r");
    auto it = m_fonts.find(chiave);
    if (it == m_fonts.end()) {
        QFont font;
        font.setFamilies(FamiglieFont(f.nome));
        font.setPointSizeF(f.punti);
        font.setBold(f.grassetto);
        it = m_fonts.insert(
            chiave, std::make_shared<FontPronto>(FontPronto{font, QFontMetricsF(font, &m_device), {}}));
    }
    m_corrente = it->get();
    if (m_painter) m_painter->setFont(m_corrente->font);
}

void StampanteQt::suPosizione(double, double) {
    scriviRiga();
}

void StampanteQt::suTesto(double x, double y, std::string_view s, bool aCapo) {
    if (m_riga.isEmpty()) {
        m_rigaX = x;
        m_rigaY = y;
    }
    m_riga += Espandi(s);
    if (aCapo) scriviRiga();
}

void StampanteQt::scriviRiga() {
    if (m_riga.isEmpty()) return;
    if (QPainter* p = pittore())
        p->drawText(QPointF(px(m_rigaX), px(m_rigaY) + m_corrente->metriche.ascent()), m_riga);
    m_riga.clear();
}

void StampanteQt::suRiquadro(double x1, double y1, double x2, double y2) {
    scriviRiga();
    if (QPainter* p = pittore())
        p->fillRect(QRectF(QPointF(px(x1), px(y1)), QPointF(px(x2), px(y2))), Qt::black);
}

void StampanteQt::suImmagine(std::string_view nome, double x, double y) {
    scriviRiga();
    const QString chiave = QString::fromUtf8(nome.data(), static_cast<qsizetype>(nome.size()));
    auto it = m_immagini.find(chiave);
    if (it == m_immagini.end()) it = m_immagini.insert(chiave, ImmagineStampa(std::string(nome)));
    const QImage& img = *it;
    if (img.isNull()) return;
    QPainter* p = pittore();
    if (!p) return;
    // Natural size: the picture's pixels at its own resolution.
    const double dpmX = img.dotsPerMeterX() > 0 ? img.dotsPerMeterX() : 96 / 0.0254;
    const double dpmY = img.dotsPerMeterY() > 0 ? img.dotsPerMeterY() : 96 / 0.0254;
    const double w = img.width() / dpmX / 0.0254 * m_dpi;
    const double h = img.height() / dpmY / 0.0254 * m_dpi;
    p->drawImage(QRectF(px(x), px(y), w, h), img);
}

void StampanteQt::suNuovaPagina() {
    scriviRiga();
    if (!m_painter) {
        // A first page left blank is still a page.
        if (!pittore()) return;
    } else if (m_paginaInAttesa) {
        m_device.newPage();
        ++m_pagine;
    }
    m_paginaInAttesa = true;
}

void StampanteQt::suFine() {
    scriviRiga();
    // A further job on this device starts on a sheet of its own.
    if (m_painter) m_paginaInAttesa = true;
}

double StampanteQt::altezzaRiga() {
    return m_corrente->metriche.lineSpacing() / m_fattore;
}

double StampanteQt::larghezzaTesto(std::string_view s) {
    const QString t = Espandi(s);
    if (t.size() > 8) return m_corrente->metriche.horizontalAdvance(t) / m_fattore;
    auto it = m_corrente->larghezze.find(t);
    if (it == m_corrente->larghezze.end())
        it = m_corrente->larghezze.insert(t, m_corrente->metriche.horizontalAdvance(t));
    return *it / m_fattore;
}

LavoroStampa::~LavoroStampa() {
    if (m_renderer) m_renderer->chiudi();
    m_pdf.reset(); // the unconfirmed save then removes its temporary file
}

std::unique_ptr<LavoroStampa> LavoroStampa::pdf(const std::string& path) {
    std::unique_ptr<LavoroStampa> j(new LavoroStampa);
    j->m_path = path;
    j->m_file = std::make_unique<DispositivoSalvataggio>(QString::fromStdString(path));
    j->m_pdf = std::make_unique<QPdfWriter>(j->m_file.get());
    j->m_pdf->setResolution(600);
    j->m_pdf->setCreator(QStringLiteral("Dorvanta"));
    j->m_pdf->setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                        QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter));
    j->m_renderer = std::make_unique<StampanteQt>(*j->m_pdf);
    return j;
}

std::unique_ptr<LavoroStampa> LavoroStampa::stampante(const std::string& nome, bool qualitaNormale) {
    QPrinterInfo info = QPrinterInfo::printerInfo(QString::fromStdString(nome));
    if (info.isNull()) info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) return nullptr;
    std::unique_ptr<LavoroStampa> j(new LavoroStampa);
    j->m_printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    if (!qualitaNormale) j->m_printer->setResolution(300);
    j->m_printer->setDocName(QStringLiteral("Dorvanta"));
    j->m_renderer = std::make_unique<StampanteQt>(*j->m_printer);
    return j;
}

std::unique_ptr<LavoroStampa> LavoroStampa::su(QPrinter& printer) {
    std::unique_ptr<LavoroStampa> j(new LavoroStampa);
    j->m_renderer = std::make_unique<StampanteQt>(printer);
    return j;
}

bool LavoroStampa::concludi(std::string& errore) {
    const bool ok = m_renderer->chiudi();
    const bool nulla = m_renderer->pagineEmesse() == 0;
    m_pdf.reset();
    if (!ok || (m_file && m_file->errore() != 0)) {
        errore = !m_file ? "the printer could not be started"
                         : "cannot write " + m_path + ": " + CausaErrore(m_file->errore()).inglese;
        return false;
    }
    if (nulla) {
        errore = "nothing to print";
        return false;
    }
    if (m_file) {
        if (!m_file->commit()) {
            errore = "cannot write " + m_path + ": " + m_file->errorString().toStdString();
            return false;
        }
        m_file.reset();
    }
    return true;
}

std::vector<std::string> ElencoStampantiConPdf() {
    std::vector<std::string> out;
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        out.push_back(name.toStdString());
    return ConStampantePdf(std::move(out));
}

} // namespace dv

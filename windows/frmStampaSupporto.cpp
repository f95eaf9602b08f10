#include "windows/frmStampaSupporto.h"

#include "core/Finestra.h"
#include "core/Ui.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPrintPreviewDialog>

#include <algorithm>
#include <filesystem>

namespace dv {

namespace {
bool PdfVirtuale(const std::string& nome) {
    return nome == NomeStampantePdf && QPrinterInfo::printerInfo(QString::fromStdString(nome)).isNull();
}
} // namespace

std::unique_ptr<LavoroStampa> ApriPdf(Ui& ui, const std::string& cartella, const std::string& nomeProposto) {
    const std::string path = ui.chooseSaveFile(cartella, "File PDF (*.pdf)|*.pdf", ".pdf", nomeProposto);
    if (path.empty()) return nullptr;
    return LavoroStampa::pdf(path);
}

std::unique_ptr<LavoroStampa> ApriDestinazione(const std::string& nome, bool qualitaNormale, Ui& ui,
                                               const std::string& cartella, const std::string& nomeProposto) {
    if (PdfVirtuale(nome)) return ApriPdf(ui, cartella, nomeProposto);
    auto job = LavoroStampa::stampante(nome, qualitaNormale);
    if (!job) ui.messageBox(ui.Lang("0048"), "", BoxIcon::Critical);
    return job;
}

void Anteprima(QWidget* parent, const std::string& nome,
               const std::function<void(OperazioniStampa&)>& emetti) {
    QPrinter printer(QPrinter::HighResolution);
    if (!PdfVirtuale(nome)) {
        const QPrinterInfo info = QPrinterInfo::printerInfo(QString::fromStdString(nome));
        if (!info.isNull()) printer.setPrinterName(info.printerName());
    }
    QPrintPreviewDialog dialog(&printer, parent);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* p) {
        auto job = LavoroStampa::su(*p);
        emetti(job->operazioni());
        std::string errore;
        job->concludi(errore);
    });
    dialog.resize(900, 1000);
    dialog.exec();
}

LavoroInSottofondo::~LavoroInSottofondo() {
    attendi();
}

void LavoroInSottofondo::attendi() {
    // The job may be waiting for the window thread (a language text): keep serving it.
    while (!m_finito)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    if (m_thread.joinable()) m_thread.join();
    QCoreApplication::processEvents();
}

void LavoroInSottofondo::avvia(std::function<void()> lavoro, std::function<void()> fine) {
    if (m_inCorso) return;
    if (m_thread.joinable()) m_thread.join();
    m_inCorso = true;
    m_finito = false;
    m_thread = std::thread([this, lavoro = std::move(lavoro), fine = std::move(fine)]() mutable {
        lavoro();
        QMetaObject::invokeMethod(
            this,
            [this, fine = std::move(fine)] {
                if (m_thread.joinable()) m_thread.join();
                m_inCorso = false;
                fine();
            },
            Qt::QueuedConnection);
        m_finito = true;
    });
}

std::string TestoErroreStampa(const std::string& errore, const std::string& procedura) {
    return "Error 482 (" + errore + ") in procedure " + procedura;
}

QPixmap DisegnoScheda(const SlipCalibration& cal, double pxPerMm) {
    const double larghezza = std::max(95.0, static_cast<double>(cal.POSX_UNO + 10 * cal.DISX_UNO) + 6);
    const double altezza = std::max(190.0, static_cast<double>(cal.POSY_INTESTAZIONE) + 8);
    QPixmap pix(static_cast<int>(larghezza * pxPerMm), static_cast<int>(altezza * pxPerMm));
    pix.fill(QColor(255, 250, 240));
    QPainter p(&pix);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(pxPerMm, pxPerMm);
    const QColor rosso(200, 30, 60);
    QFont carattere(QStringLiteral("DejaVu Sans"));
    // A box 5 mm wide around the mark's place; a number inside, any other label below it.
    const auto casella = [&](double x, double y, const QString& testo, bool dentro) {
        const QRectF r(x - 1.5, y - 1.5, 5, 5);
        p.setPen(QPen(rosso, 0.25));
        p.setBrush(Qt::white);
        p.drawRect(r);
        if (testo.isEmpty()) return;
        carattere.setPixelSize(dentro ? 3 : 2);
        p.setFont(carattere);
        p.setPen(rosso);
        if (dentro)
            p.drawText(r, Qt::AlignCenter, testo);
        else
            p.drawText(QRectF(x - 5, y + 3.7, 12, 3), Qt::AlignHCenter | Qt::AlignTop, testo);
    };
    // Frame and title.
    p.setPen(QPen(rosso, 0.6));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(1, 1, larghezza - 2, altezza - 2), 3, 3);
    QFont titolo(QStringLiteral("DejaVu Sans"));
    titolo.setPixelSize(7);
    titolo.setBold(true);
    p.setFont(titolo);
    p.setPen(rosso);
    p.drawText(QRectF(0, 8, larghezza, 12), Qt::AlignHCenter, QStringLiteral("10eLOTTO"));
    // The ninety numbers, ten to a row.
    for (int n = 1; n <= 90; ++n) {
        const double x = cal.POSX_UNO + ((n - 1) % 10) * cal.DISX_UNO;
        const double y = cal.POSY_UNO + ((n - 1) / 10) * cal.DISY_UNO;
        casella(x, y, QString::number(n), true);
    }
    // The ten stakes, the kinds of draw and the game options.
    for (size_t i = 0; i < ImportiGiocata.size(); ++i)
        casella(cal.POSX_IMPORTI + static_cast<double>(i) * cal.DISX_UNO, cal.POSY_IMPORTI,
                QString::fromLatin1(ImportiGiocata[i].caption), false);
    const char* estrazioni[3] = {"5 MIN", "LOTTO", "IMMED."};
    double x = cal.POSX_ESTRAZIONI;
    for (int i = 0; i < 3; ++i) {
        x += (2 + i) * cal.DISX_UNO;
        casella(x, cal.POSY_ESTRAZIONI, QString::fromLatin1(estrazioni[i]), false);
    }
    const char* opzioni[4] = {"ORO", "D. ORO", "EXTRA", ""};
    x = cal.POSX_OPZIONIGIOCO;
    for (int i = 0; i < 4; ++i) {
        casella(x, cal.POSY_OPZIONIGIOCO, QString::fromLatin1(opzioni[i]), false);
        x += 19 + i;
    }
    // The header's line.
    p.setPen(QPen(rosso, 0.2, Qt::DashLine));
    p.drawLine(QPointF(cal.POSX_INTESTAZIONE, cal.POSY_INTESTAZIONE + 3.5),
               QPointF(larghezza - 4, cal.POSY_INTESTAZIONE + 3.5));
    return pix;
}

} // namespace dv

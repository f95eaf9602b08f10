#include "windows/frmStatisticheGrafico.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QHorizontalBarSeries>
#include <QValueAxis>

#include <algorithm>

namespace dv {

void MostraGraficoBarre(QChartView& view, const std::string& titolo, const std::vector<RigaGrafico>& righe) {
    auto* chart = new QChart;
    chart->setTitle(QString::fromStdString(titolo));
    QFont fTitolo = view.font();
    fTitolo.setBold(true);
    chart->setTitleFont(fTitolo);
    chart->legend()->setVisible(false);
    chart->setAnimationOptions(QChart::NoAnimation);

    auto* barre = new QBarSet(QString());
    barre->setColor(QColor(0x1f, 0x5f, 0xbf));
    QStringList etichette;
    int32_t massimo = 0;
    // A horizontal bar chart stacks its rows from the bottom up: the last row goes in first, so
    // that the first row stands on top.
    for (auto r = righe.rbegin(); r != righe.rend(); ++r) {
        *barre << r->valore;
        // Non-breaking blanks: the axis draws its labels as rich text, which would fold the blanks
        // that keep the values in line.
        etichette << QString::fromStdString(r->etichetta).replace(QLatin1Char(' '), QChar(0x00A0));
        massimo = std::max(massimo, r->valore);
    }
    auto* serie = new QHorizontalBarSeries;
    serie->append(barre);
    serie->setBarWidth(0.7);
    chart->addSeries(serie);

    // The labels in a fixed-width font, so that the values behind " --> " line up.
    const QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    auto* righeAsse = new QBarCategoryAxis;
    righeAsse->setLabelsFont(fisso);
    righeAsse->append(etichette);
    chart->addAxis(righeAsse, Qt::AlignLeft);
    serie->attachAxis(righeAsse);
    auto* valori = new QValueAxis;
    // Whole-number ticks every 1, 2 or 5 times a power of ten, no more than ten of them.
    int passo = 1;
    for (int decina = 1;; decina *= 10) {
        if (massimo <= 10 * decina) {
            passo = decina;
            break;
        }
        if (massimo <= 20 * decina) {
            passo = 2 * decina;
            break;
        }
        if (massimo <= 50 * decina) {
            passo = 5 * decina;
            break;
        }
    }
    valori->setLabelFormat(QStringLiteral("%d"));
    valori->setTickType(QValueAxis::TicksDynamic);
    valori->setTickAnchor(0);
    valori->setTickInterval(passo);
    valori->setRange(0, std::max(1, (massimo + passo - 1) / passo) * passo);
    chart->addAxis(valori, Qt::AlignBottom);
    serie->attachAxis(valori);

    // Room for every row's label: an axis shortens to "..." every label whose row is lower than
    // the text and its padding above and below, so each row takes a line and that padding, and
    // the chart adds room for its title and the value axis.
    const QFontMetrics fm(fisso);
    view.setMinimumHeight((static_cast<int>(righe.size()) + 1) * (fm.height() + 12) + 8 * fm.height());

    QChart* vecchio = view.chart();
    view.setChart(chart);
    delete vecchio;
}

} // namespace dv

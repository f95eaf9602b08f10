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
    for (const RigaGrafico& r : righe) {
        *barre << r.valore;
        etichette << QString::fromStdString(r.etichetta);
        massimo = std::max(massimo, r.valore);
    }
    auto* serie = new QHorizontalBarSeries;
    serie->append(barre);
    serie->setBarWidth(0.7);
    chart->addSeries(serie);

    // The labels in a fixed-width font, so that the values behind " --> " line up.
    QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fisso.setPointSizeF(view.font().pointSizeF());
    auto* righeAsse = new QBarCategoryAxis;
    righeAsse->append(etichette);
    righeAsse->setLabelsFont(fisso);
    righeAsse->setReverse(true); // the first row on top
    chart->addAxis(righeAsse, Qt::AlignLeft);
    serie->attachAxis(righeAsse);
    auto* valori = new QValueAxis;
    valori->setLabelFormat(QStringLiteral("%d"));
    valori->setRange(0, std::max(1, massimo));
    valori->applyNiceNumbers();
    chart->addAxis(valori, Qt::AlignBottom);
    serie->attachAxis(valori);

    // Room for every row's label: a line and a little more for each, plus title and value axis.
    const QFontMetrics fm(fisso);
    view.setMinimumHeight(static_cast<int>(righe.size()) * (fm.height() + 4) + 6 * fm.height());

    QChart* vecchio = view.chart();
    view.setChart(chart);
    delete vecchio;
}

} // namespace dv

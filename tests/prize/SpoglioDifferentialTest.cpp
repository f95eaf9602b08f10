// The fast checks against the literal ones on random systems, draws, stretches and files: the
// same categories, columns, points, sums and boxes, in the same order.
#include "tests/prize/SupportoSpoglio.h"
#include "tests/reference/SpoglioLetterale.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

using namespace dv;
using namespace dv::test;

namespace {

constexpr float Importi[] = {1.0f, 1.5f, 2.0f, 2.5f, 3.0f, 5.0f, 10.0f, 20.0f, 50.0f, 200.0f, 0.3f};

class Casuale {
public:
    explicit Casuale(uint32_t seed) : m_g(seed) {}
    int tra(int a, int b) { return std::uniform_int_distribution<int>(a, b)(m_g); }

    // n distinct numbers of 1..90, up to dalPool of them drawn from pool.
    std::vector<int> distinti(int n, std::vector<int> pool, int dalPool) {
        std::shuffle(pool.begin(), pool.end(), m_g);
        pool.resize(std::min(pool.size(), static_cast<size_t>(std::min(n, dalPool))));
        while (static_cast<int>(pool.size()) < n) {
            const int x = tra(1, 90);
            if (std::find(pool.begin(), pool.end(), x) == pool.end()) pool.push_back(x);
        }
        std::shuffle(pool.begin(), pool.end(), m_g);
        return pool;
    }

    // A random system of count columns of len numbers of a forecast, now and then a column with a
    // repeated number, a 0 or a number outside the forecast; with a kind of play and a stake.
    void giocata(Corpo& c, int count, std::vector<int>& forecast) {
        const int len = tra(1, 10);
        forecast = distinti(tra(std::max(len, 10), 40), {}, 0);
        std::vector<std::vector<int>> cols;
        for (int j = 0; j < count; ++j) {
            std::vector<int> col = distinti(len, forecast, len);
            std::sort(col.begin(), col.end());
            if (tra(0, 40) == 0) col[static_cast<size_t>(tra(0, len - 1))] = col[0];
            if (tra(0, 80) == 0) col[static_cast<size_t>(tra(0, len - 1))] = 0;
            if (tra(0, 80) == 0) col[static_cast<size_t>(tra(0, len - 1))] = tra(1, 90);
            cols.push_back(col);
        }
        ImpostaSistema(c, len, cols);
        ImpostaGiocata(c, tra(1, 3), Importi[static_cast<size_t>(tra(0, 10))]);
    }

    // An Oro number: one of the draw, one outside it, or none.
    int oro(const std::vector<int>& draw) {
        const int k = tra(0, 9);
        if (k == 0) return 0;
        if (k == 1) return tra(1, 90);
        return draw[static_cast<size_t>(tra(0, 19))];
    }

private:
    std::mt19937 m_g;
};

TEST(SpoglioDifferenziale, SingleCheckMatchesTheLiteralLoop) {
    auto c = std::make_unique<Corpo>();
    Casuale r(1234);
    for (int caso = 0; caso < 400; ++caso) {
        std::vector<int> forecast;
        r.giocata(*c, r.tra(1, caso % 10 == 0 ? 9000 : 300), forecast);
        const auto draw = r.distinti(20, forecast, r.tra(0, 20));
        ImpostaEstrazione(*c, draw, r.oro(draw), r.oro(draw));
        const int32_t n = c->pronostico.NumColonne;
        const int32_t dal = r.tra(1, n), al = r.tra(dal, n);
        const std::string attesa = Descrivi(reference::SpoglioColonne(*c, dal, al));
        for (ModoSpoglio modo : {ModoSpoglio::Automatico, ModoSpoglio::Semplice, ModoSpoglio::DueThread})
            ASSERT_EQ(Descrivi(SpoglioColonne(*c, dal, al, modo)), attesa)
                << "case " << caso << " way " << static_cast<int>(modo);
    }
}

TEST(SpoglioDifferenziale, ArchiveCheckMatchesTheLiteralLoopWithTheSameBoxes) {
    auto c = std::make_unique<Corpo>();
    Casuale r(99);
    for (int caso = 0; caso < 150; ++caso) {
        std::vector<int> forecast;
        r.giocata(*c, r.tra(0, caso % 10 == 0 ? 12000 : 200), forecast);
        // An archive of a few dates with a few draws each.
        ArrayEstrazioni a(1);
        const int date = r.tra(1, 5);
        for (int d = 1; d <= date; ++d) {
            const int quante = r.tra(1, 6);
            for (int k = 1; k <= quante; ++k) {
                const auto draw = r.distinti(20, forecast, r.tra(0, 20));
                a.push_back(Draw(DateOf(d), k * 2, draw, r.oro(draw), r.oro(draw)));
            }
        }
        c->mArrEstrazioni = a;
        const int d1 = r.tra(1, date), d2 = r.tra(d1, date);
        const Tratto t = TrovaTratto(a, DateOf(d1), r.tra(1, 12), DateOf(d2), r.tra(1, 12));
        FakeUi uiAtteso;
        const std::string attesa = Descrivi(reference::SpoglioArchivio(*c, uiAtteso, t));
        const uint8_t oro = c->OroSpoglio, doppio = c->DoppioOroSpoglio;
        for (ModoSpoglio modo : {ModoSpoglio::Automatico, ModoSpoglio::Semplice, ModoSpoglio::DueThread}) {
            FakeUi ui;
            c->OroSpoglio = c->DoppioOroSpoglio = 0;
            AvanzamentoSpoglio avanzamento;
            ASSERT_EQ(Descrivi(SpoglioArchivio(*c, ui, t, avanzamento, modo)), attesa)
                << "case " << caso << " way " << static_cast<int>(modo);
            ASSERT_EQ(ui.boxes.size(), uiAtteso.boxes.size());
            for (size_t i = 0; i < ui.boxes.size(); ++i)
                EXPECT_EQ(ui.boxes[i].text, uiAtteso.boxes[i].text);
            EXPECT_EQ(c->OroSpoglio, oro);
            EXPECT_EQ(c->DoppioOroSpoglio, doppio);
        }
    }
}

TEST(SpoglioDifferenziale, ComparisonMatchesTheLiteralLoop) {
    Casuale r(7);
    for (int caso = 0; caso < 150; ++caso) {
        std::vector<RecordNumeri> f1(1), f2(1);
        const int len = r.tra(1, 25);
        std::vector<int> pool = r.distinti(r.tra(len, 60), {}, 0);
        const int n1 = r.tra(1, caso % 10 == 0 ? 5000 : 150), n2 = r.tra(1, 12);
        for (int j = 0; j < n1; ++j) {
            // Lines longer or shorter than the first, repeated numbers now and then; few lines in the
            // second file or many, which take different ways.
            std::vector<int> line =
                r.distinti(j == 0 ? len : std::clamp(len + r.tra(-2, 2), 1, 25), pool, 25);
            if (r.tra(0, 30) == 0) line.back() = line.front();
            f1.push_back(Riga(line));
        }
        for (int j = 0; j < n2; ++j)
            f2.push_back(Riga(r.distinti(r.tra(1, 25), pool, r.tra(0, 25))));
        AvanzamentoSpoglio avanzamento;
        ASSERT_EQ(Descrivi(VerificaSistema(f1, f2, avanzamento)),
                  Descrivi(reference::VerificaSistema(f1, f2)))
            << "case " << caso;
    }
}

} // namespace

#include "catalogue/ricerche.h"
#include "screens/freccia.h"
#include "statistics/form_stat.h"
#include "support/archivi.h"

#include <QApplication>
#include <QLabel>
#include <QPaintEvent>
#include <QTimer>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

/// What is painted in a window, and how often the window is brought up to date.
class ContaPitture final : public QObject {
  public:
    ContaPitture(QWidget& finestra, QWidget& dentro) : finestra_{finestra}, dentro_{dentro} {
        qApp->installEventFilter(this);
    }
    [[nodiscard]] int giri() const { return giri_; }
    /// Paintings outside of what may be painted.
    [[nodiscard]] int fuori() const { return fuori_; }
    [[nodiscard]] int disposizioni() const { return disposizioni_; }
    [[nodiscard]] int figure() const { return figure_; }

  protected:
    bool eventFilter(QObject* chi, QEvent* evento) override {
        auto* w = qobject_cast<QWidget*>(chi);
        if (w == nullptr || (w != &finestra_ && !finestra_.isAncestorOf(w))) return false;
        if (evento->type() == QEvent::LayoutRequest) ++disposizioni_;
        if (evento->type() == QEvent::UpdateRequest && w == &finestra_) ++giri_;
        if (evento->type() == QEvent::Paint) {
            const QRect permesso{dentro_.mapTo(&finestra_, QPoint{}), dentro_.size()};
            for (const QRect& r : static_cast<QPaintEvent*>(evento)->region()) {
                const QRect dove = r.translated(w->mapTo(&finestra_, QPoint{}));
                if (!permesso.contains(dove)) ++fuori_;
            }
            if (qobject_cast<QLabel*>(w) != nullptr) ++figure_;
        }
        return false;
    }

  private:
    QWidget& finestra_;
    QWidget& dentro_;
    int giri_ = 0;
    int fuori_ = 0;
    int disposizioni_ = 0;
    int figure_ = 0;
};

}  // namespace

class TestFreccia : public QObject {
    Q_OBJECT
  private slots:
    void dopo_l_apertura_si_dipingono_solo_le_due_frecce_che_cambiano();
    void cinque_passate_e_resta_l_ultima();
    void senza_animazioni_niente();
};

void TestFreccia::dopo_l_apertura_si_dipingono_solo_le_due_frecce_che_cambiano() {
    const prove::CartellaProva cartella;
    Sessione sessione;
    sessione.percorso_programma = cartella.percorso();
    const auto archivio = prove::archivio_casuale(5);
    Form_stat schermo{sessione};
    schermo.apri(*trova_ricerca("ritardo e frequenza dei 90 numeri"), archivio);
    schermo.show();
    QVERIFY(QTest::qWaitForWindowExposed(&schermo));
    auto* freccia = schermo.findChild<FrecciaAnimata*>(QStringLiteral("FrameFreccia"));
    QVERIFY(freccia != nullptr);
    // What the opening itself has to paint is painted.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    freccia->avvia();
    QCoreApplication::processEvents();
    const ContaPitture conta{schermo, *freccia};
    QTRY_VERIFY_WITH_TIMEOUT(!freccia->in_moto(), 20000);
    QCoreApplication::processEvents();
    QVERIFY(conta.giri() > 0);
    QVERIFY2(conta.giri() <= 24, "one round for each tick that lights another arrow");
    QCOMPARE(conta.fuori(), 0);
    QCOMPARE(conta.disposizioni(), 0);
    QVERIFY2(conta.figure() <= 2 * conta.giri(), "the one that goes out and the one that lights up");
}

void TestFreccia::cinque_passate_e_resta_l_ultima() {
    FrecciaAnimata freccia;
    auto* orologio = freccia.findChild<QTimer*>(QStringLiteral("Timer1"));
    QVERIFY(orologio != nullptr);
    orologio->setInterval(0);
    freccia.show();
    freccia.avvia();
    QCOMPARE(freccia.accesa(), 0);
    QList<int> accese{0};
    QObject::connect(orologio, &QTimer::timeout, &freccia, [&] {
        if (freccia.in_moto()) accese << freccia.accesa();
    });
    QTRY_VERIFY(!freccia.in_moto());
    QCOMPARE(accese.size(), 25);
    for (int i = 0; i < accese.size(); ++i) QCOMPARE(accese[i], i % 5);
    QCOMPARE(freccia.accesa(), 4);
    // Each arrow shows what it is.
    const auto figura = [&](int i) {
        return freccia.findChild<QLabel*>(QStringLiteral("Image1_%1").arg(i))->pixmap().toImage();
    };
    QVERIFY(figura(4) != figura(0));
    for (int i = 1; i < 4; ++i) QCOMPARE(figura(i), figura(0));
}

void TestFreccia::senza_animazioni_niente() {
    FrecciaAnimata freccia;
    freccia.imposta_animata(false);
    freccia.show();
    freccia.avvia();
    QCOMPARE(freccia.accesa(), -1);
    QVERIFY(!freccia.in_moto());
}

QTEST_MAIN(TestFreccia)
#include "test_freccia.moc"

#include "screens/tema.h"
#include "stores/form_estrazione.h"
#include "stores/quadro_estrazione.h"
#include "support/archivi.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QtTest>
#include <memory>
#include <vector>

using namespace sortimetra;

class TestFormEstrazione final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    std::unique_ptr<Form_Estrazione> form_;
    std::vector<Arrivate> scritte_;

    template <class T>
    T* controllo(const QString& nome) const {
        T* c = form_->findChild<T*>(nome);
        if (c == nullptr) QTest::qFail(qPrintable(nome), __FILE__, __LINE__);
        return c;
    }
    CasellaEstratto* lotto(int i) const {
        return controllo<CasellaEstratto>(QStringLiteral("txtLotto_%1").arg(i));
    }
    static void incolla(QWidget* in, const QString& testo) {
        QApplication::clipboard()->setText(testo);
        in->setFocus();
        QTest::keyClick(in, Qt::Key_V, Qt::ControlModifier);
    }
    /// Types into whatever has the keyboard, as a player does who looks at the paper.
    void batti(const QString& tasti) const {
        for (const QChar c : tasti) QTest::keyClick(form_->focusWidget(), c.toLatin1());
    }
    QString stato() const { return controllo<QLabel>(QStringLiteral("lblStato"))->text(); }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        scritte_.clear();
        form_ = std::make_unique<Form_Estrazione>(sessione_);
        connect(form_.get(), &Form_Estrazione::scritta, this,
                [this](const Arrivate& a) { scritte_.push_back(a); });
        // A Friday; the archive's last Lotto draw is of the Thursday before.
        form_->prepara(nullptr, *leggi_data_italiana("21/08/2026"));
        form_->show();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    void cleanup() { form_.reset(); }

    void undici_ruote_battute_di_seguito() {
        QCOMPARE(controllo<QDateEdit>("txtData")->date(), QDate(2026, 8, 21));
        QCOMPARE(controllo<QLabel>("lblGiorno")->text(), QStringLiteral("venerdì"));
        auto* aggiungi = controllo<QPushButton>("cmdAggiungi");
        QVERIFY(!aggiungi->isEnabled());
        QVERIFY(lotto(0)->hasFocus());
        for (int r = 0; r < 11; ++r) batti(QStringLiteral("0112 3 9045"));
        QVERIFY(aggiungi->hasFocus());
        QVERIFY(aggiungi->isEnabled());
        QTest::keyClick(aggiungi, Qt::Key_Return);
        QCOMPARE(scritte_.size(), 1U);
        const auto& righe = scritte_[0].righe.lotto;
        QCOMPARE(righe.size(), 11U);
        QCOMPARE(righe[0].ruota, 0);
        QCOMPARE(righe[10].ruota, kNazionale);
        QVERIFY((righe[4].numeri == std::array<Numero, 5>{1, 12, 3, 90, 45}));
        QVERIFY(righe[0].data == *leggi_data_italiana("21/08/2026"));
        QCOMPARE(scritte_[0].testi.size(), 1U);
    }

    void doppi_e_numeri_fuori_si_segnano_subito() {
        batti(QStringLiteral("1212"));
        QVERIFY(lotto(0)->property("errato").toBool());
        QVERIFY(lotto(1)->property("errato").toBool());
        QCOMPARE(lotto(1)->toolTip(), QStringLiteral("Il 12 c'è già"));
        QCOMPARE(stato(), QStringLiteral("Bari: Il 12 c'è già."));
        // Back with the keyboard: the box is emptied, then the one before is meant.
        QTest::keyClick(form_->focusWidget(), Qt::Key_Backspace);
        QVERIFY(lotto(1)->hasFocus());
        batti(QStringLiteral("91"));
        QVERIFY(!lotto(0)->property("errato").toBool());
        QCOMPARE(lotto(1)->toolTip(), QStringLiteral("I numeri vanno da 1 a 90"));
        QCOMPARE(lotto(1)->numero(), Numero{0});
        // The same number may stand in two wheels.
        incolla(lotto(5), QStringLiteral("12 1 2 3 4"));
        QVERIFY(!lotto(5)->property("errato").toBool());
    }

    void una_ruota_si_incolla_e_anche_tutte() {
        incolla(lotto(7), QStringLiteral("BA 5-10-15-20-25"));
        QCOMPARE(lotto(5)->text(), QStringLiteral("5"));
        QCOMPARE(lotto(9)->text(), QStringLiteral("25"));
        QVERIFY(lotto(10)->hasFocus());
        QString tutte;
        for (int i = 0; i < 11; ++i) tutte += QStringLiteral("1\t2\t3\t4\t5\n");
        incolla(lotto(0), tutte);
        QVERIFY(controllo<QPushButton>("cmdAggiungi")->isEnabled());
        QTest::mouseClick(controllo<QPushButton>("cmdSvuota"), Qt::LeftButton);
        QCOMPARE(lotto(54)->text(), QString{});
        QVERIFY(!controllo<QPushButton>("cmdAggiungi")->isEnabled());
    }

    void superenalotto_con_jolly_e_superstar() {
        controllo<QTabBar>("TabGioco")->setCurrentIndex(1);
        batti(QStringLiteral("010203040506"));
        QVERIFY(controllo<CasellaEstratto>("txtJolly")->hasFocus());
        batti(QStringLiteral("06"));
        QVERIFY(controllo<CasellaEstratto>("txtJolly")->property("errato").toBool());
        controllo<CasellaEstratto>("txtJolly")->setFocus();
        batti(QStringLiteral("07"));
        // The SuperStar comes out of an urn of its own.
        batti(QStringLiteral("06"));
        QTest::keyClick(form_->focusWidget(), Qt::Key_Return);
        QCOMPARE(scritte_.size(), 1U);
        const auto& s = scritte_[0].righe.superenalotto.at(0);
        QVERIFY((s.numeri == std::array<Numero, 6>{1, 2, 3, 4, 5, 6}));
        QCOMPARE(s.jolly, Numero{7});
        QCOMPARE(s.superstar, Numero{6});
    }

    void win_for_life_ha_un_ora_e_venti_numeri() {
        controllo<QTabBar>("TabGioco")->setCurrentIndex(2);
        auto* ora = controllo<QComboBox>("ComboOra");
        QVERIFY(ora->isVisible());
        // 3 to 9 cannot go on: no blank is needed after them.
        batti(QStringLiteral("1 2 3456789 10"));
        ora->setCurrentIndex(ora->findText(QStringLiteral("9:00")));
        QVERIFY(controllo<QPushButton>("cmdAggiungi")->isEnabled());
        QTest::mouseClick(controllo<QPushButton>("cmdAggiungi"), Qt::LeftButton);
        QCOMPARE(scritte_.size(), 1U);
        const auto& w = scritte_[0].righe.winforlife.at(0);
        QCOMPARE(w.ora, std::string{"9:00"});
        QVERIFY((w.numeri == std::array<Numero, 10>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    }

    void un_giorno_senza_estrazione_si_dice() {
        controllo<QDateEdit>("txtData")->setDate(QDate(2026, 8, 10));
        QCOMPARE(controllo<QLabel>("lblGiorno")->text(),
                 QStringLiteral("lunedì: il calendario non prevede estrazioni"));
        // No draw is later than today.
        controllo<QDateEdit>("txtData")->setDate(QDate(2026, 9, 1));
        QCOMPARE(controllo<QDateEdit>("txtData")->date(), QDate(2026, 8, 21));
    }

    void si_propone_il_giorno_dopo_l_ultima() {
        const auto archivio = prove::da_testo("5 BA 1 2 3 4 5\n");
        form_->prepara(&archivio, *leggi_data_italiana("21/08/2026"));
        // 5 January 2000 was a Wednesday; the Lotto was drawn on Wednesdays and Saturdays then.
        QCOMPARE(controllo<QDateEdit>("txtData")->date(), QDate(2000, 1, 8));
    }

    void ogni_casella_ha_nome_e_giro() {
        QSet<QString> nomi;
        for (const auto* c : form_->findChildren<CasellaEstratto*>()) {
            QVERIFY(!c->accessibleName().isEmpty());
            QVERIFY2(!nomi.contains(c->objectName()), qPrintable(c->objectName()));
            nomi.insert(c->objectName());
        }
        QCOMPARE(nomi.size(), 55 + 8 + 10);
        QCOMPARE(lotto(50)->accessibleName(), QStringLiteral("Nazionale, 1° numero"));
        lotto(0)->setFocus();
        QTest::keyClick(lotto(0), Qt::Key_Tab);
        QVERIFY(lotto(1)->hasFocus());
    }
};

QTEST_MAIN(TestFormEstrazione)
#include "test_form_estrazione.moc"

#include "screens/area_parametri.h"
#include "screens/casella_cifre.h"
#include "screens/tema.h"
#include "support/archivi.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

using namespace sortimetra;

namespace {

/// Thirty draws of Bari and Roma, the 7th without Bari; Win for Life has forty.
ArchivioEstrazioni archivio_di_prova() {
    std::string lotto;
    std::string wfl;
    for (int c = 1; c <= 30; ++c) {
        if (c != 7) lotto += std::to_string(c) + " BA 1 2 3 4 5\n";
        lotto += std::to_string(c) + " RM 6 7 8 9 10\n";
    }
    for (int c = 1; c <= 40; ++c) wfl += std::to_string(c) + " 8:00 1 2 3 4 5 6 7 8 9 10\n";
    return prove::da_testi(lotto, "", wfl);
}

}  // namespace

class TestAreaParametri : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init();
    void cleanup();

    void le_ruote_sono_dodici_caselle_in_ordine();
    void all_apertura_c_e_bari();
    void tutte_sta_da_sola();
    void nazionale_sta_da_sola();
    void una_ruota_toglie_tutte_e_nazionale();
    void nessuna_ruota();
    void una_casella_si_spunta_anche_dalla_tastiera();
    void ogni_clic_avvisa_una_volta_sola();
    void le_ventuno_voci_dell_intervallo();
    void la_voce_scelta_va_nell_ambito();
    void le_ore_del_win_for_life();
    void superenalotto_non_ha_ruote();
    void il_tratto_va_dal_primo_all_ultimo();
    void passano_solo_cifre_e_due_punti_data();
    void passano_solo_cifre_e_due_punti();
    void all_uscita_il_valore_torna_nei_limiti_data();
    void all_uscita_il_valore_torna_nei_limiti();
    void le_frecce_la_rotella_e_le_pagine_spostano();
    void la_data_segue_ogni_cambio();
    void la_data_torna_con_il_valore_che_c_era();
    void chi_ascolta_sente_la_data_stessa();
    void senza_la_riga_di_bari_la_data_manca();
    void il_primo_puo_superare_l_ultimo();
    void il_testo_dei_concorsi();
    void ogni_controllo_ha_un_nome_per_chi_non_vede();
    void la_casella_di_cifre();

  private:
    QCheckBox* ruota(int i) const {
        return area_->findChild<QCheckBox*>(QStringLiteral("CheckRuota_%1").arg(i));
    }
    QLineEdit* testo(const char* nome) const {
        return area_->findChild<QLineEdit*>(QString::fromLatin1(nome));
    }
    QString data(const char* nome) const {
        return area_->findChild<QLabel*>(QString::fromLatin1(nome))->text();
    }
    QComboBox* intervallo() const { return area_->findChild<QComboBox*>(QStringLiteral("ComboIntervallo")); }
    QList<int> spuntate() const {
        QList<int> si;
        for (int i = 0; i < 12; ++i)
            if (ruota(i)->isChecked()) si << i;
        return si;
    }
    /// A click where a user would make it: on the box's text.
    static void clic(QCheckBox* c) { QTest::mouseClick(c, Qt::LeftButton, {}, QPoint{14, c->height() / 2}); }

    ArchivioEstrazioni archivio_ = archivio_di_prova();
    std::unique_ptr<QWidget> finestra_;
    AreaParametri* area_ = nullptr;
    QLineEdit* altrove_ = nullptr;
};

void TestAreaParametri::init() {
    finestra_ = std::make_unique<QWidget>();
    auto* colonna = new QVBoxLayout{finestra_.get()};
    area_ = new AreaParametri;
    altrove_ = new QLineEdit;
    colonna->addWidget(area_);
    colonna->addWidget(altrove_);
    finestra_->show();
    area_->apri(archivio_, {});
    QVERIFY(QTest::qWaitForWindowActive(finestra_.get()));
}

void TestAreaParametri::cleanup() {
    finestra_.reset();
}

void TestAreaParametri::le_ruote_sono_dodici_caselle_in_ordine() {
    const QStringList nomi{"BARI",    "CAGLIARI", "FIRENZE", "GENOVA",  "MILANO", "NAPOLI",
                           "PALERMO", "ROMA",     "TORINO",  "VENEZIA", "TUTTE",  "NAZIONALE"};
    const QStringList codici{"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "", "NZ"};
    for (int i = 0; i < 12; ++i) {
        QCOMPARE(ruota(i)->text(), nomi[i]);
        QCOMPARE(ruota(i)->property("tag").toString(), codici[i]);
    }
    QCOMPARE(area_->objectName(), QStringLiteral("FrameParametri"));
    // Two columns in reading order, TUTTE and NAZIONALE set apart below.
    QCOMPARE(ruota(0)->y(), ruota(1)->y());
    QVERIFY(ruota(0)->x() < ruota(1)->x());
    QCOMPARE(ruota(2)->x(), ruota(0)->x());
    QVERIFY(ruota(10)->y() - ruota(8)->y() > ruota(8)->y() - ruota(6)->y());
    QCOMPARE(ruota(11)->y(), ruota(10)->y());
}

void TestAreaParametri::all_apertura_c_e_bari() {
    QCOMPARE(spuntate(), QList<int>{0});
    QCOMPARE(area_->ambito().ruote, SelezioneRuote{});
    area_->apri(archivio_, SelezioneRuote::tutte());
    QCOMPARE(spuntate(), QList<int>{10});
}

void TestAreaParametri::tutte_sta_da_sola() {
    clic(ruota(3));
    clic(ruota(7));
    QCOMPARE(spuntate(), (QList<int>{0, 3, 7}));
    clic(ruota(10));
    QCOMPARE(spuntate(), QList<int>{10});
    QCOMPARE(area_->ruote().n_ruote(), 10);
    clic(ruota(11));
    QCOMPARE(spuntate(), QList<int>{11});
    clic(ruota(10));
    QCOMPARE(spuntate(), QList<int>{10});
}

void TestAreaParametri::nazionale_sta_da_sola() {
    clic(ruota(9));
    clic(ruota(11));
    QCOMPARE(spuntate(), QList<int>{11});
    QVERIFY(area_->ambito().ruote.e_nazionale());
}

void TestAreaParametri::una_ruota_toglie_tutte_e_nazionale() {
    clic(ruota(10));
    clic(ruota(4));
    QCOMPARE(spuntate(), QList<int>{4});
    clic(ruota(11));
    clic(ruota(0));
    QCOMPARE(spuntate(), QList<int>{0});
    // Taking a wheel away is a click on it too.
    clic(ruota(4));
    clic(ruota(0));
    QCOMPARE(spuntate(), QList<int>{4});
}

void TestAreaParametri::nessuna_ruota() {
    clic(ruota(0));
    QCOMPARE(spuntate(), QList<int>{});
    QCOMPARE(area_->ruote(), SelezioneRuote::nessuna());
    QCOMPARE(area_->ruote().n_ruote(), 0);
    clic(ruota(10));
    clic(ruota(10));
    QCOMPARE(spuntate(), QList<int>{});
}

void TestAreaParametri::una_casella_si_spunta_anche_dalla_tastiera() {
    ruota(5)->setFocus();
    QTest::keyClick(ruota(5), Qt::Key_Space);
    QCOMPARE(spuntate(), (QList<int>{0, 5}));
    QTest::keyClick(ruota(5), Qt::Key_Tab);
    QTRY_VERIFY(ruota(6)->hasFocus());
}

void TestAreaParametri::ogni_clic_avvisa_una_volta_sola() {
    QSignalSpy avvisi{area_, &AreaParametri::cambiato};
    clic(ruota(3));
    QCOMPARE(avvisi.count(), 1);
    clic(ruota(10));  // five boxes change
    QCOMPARE(avvisi.count(), 2);
    area_->apri(archivio_, {});
    QCOMPARE(avvisi.count(), 2);
    area_->imposta_ruote(SelezioneRuote::nazionale());
    QCOMPARE(avvisi.count(), 3);
    QCOMPARE(spuntate(), QList<int>{11});
}

void TestAreaParametri::le_ventuno_voci_dell_intervallo() {
    QCOMPARE(intervallo()->count(), 21);
    QCOMPARE(intervallo()->itemText(0), QStringLiteral("Tutti i Concorsi"));
    QCOMPARE(intervallo()->itemText(5), QStringLiteral("Anni Pari - Mesi Dispari"));
    QCOMPARE(intervallo()->itemText(20), QStringLiteral("Dicembre"));
    QVERIFY(!intervallo()->isEditable());
}

void TestAreaParametri::la_voce_scelta_va_nell_ambito() {
    QSignalSpy avvisi{area_, &AreaParametri::cambiato};
    QTest::keyClick(intervallo(), Qt::Key_Down);
    QCOMPARE(area_->ambito().intervallo, 1U);
    QCOMPARE(area_->ambito().ora, 0U);
    QCOMPARE(avvisi.count(), 1);
    QTest::keyClick(intervallo(), Qt::Key_End);
    QCOMPARE(area_->ambito().intervallo, 20U);
    QCOMPARE(area_->testo_intervallo(), QStringLiteral("Dicembre"));
    area_->apri(archivio_, {});
    QCOMPARE(area_->ambito().intervallo, 0U);
}

void TestAreaParametri::le_ore_del_win_for_life() {
    area_->configura(AreaParametri::Genere::win_for_life);
    area_->apri(archivio_, {});
    QCOMPARE(intervallo()->count(), 16);
    QCOMPARE(intervallo()->itemText(0), QStringLiteral("Tutti"));
    QCOMPARE(intervallo()->itemText(1), QStringLiteral("8:00"));
    QCOMPARE(intervallo()->itemText(15), QStringLiteral("22:00"));
    QVERIFY(!ruota(0)->isVisible());
    intervallo()->setCurrentIndex(2);
    QCOMPARE(area_->ambito().ora, 2U);
    QCOMPARE(area_->ambito().intervallo, 0U);
    // Its own last concorso and its own dates.
    QCOMPARE(testo("txta")->text(), QStringLiteral("40"));
    QCOMPARE(data("lbldata2"), QString::fromStdString(testo_data(*archivio_.data_winforlife(40))));
    area_->configura(AreaParametri::Genere::lotto);
    QVERIFY(ruota(0)->isVisible());
    QCOMPARE(intervallo()->count(), 21);
}

void TestAreaParametri::superenalotto_non_ha_ruote() {
    area_->configura(AreaParametri::Genere::senza_ruote);
    area_->apri(archivio_, {});
    QVERIFY(!ruota(0)->isVisible());
    QCOMPARE(intervallo()->count(), 21);
    QCOMPARE(testo("txta")->text(), QStringLiteral("30"));
}

void TestAreaParametri::il_tratto_va_dal_primo_all_ultimo() {
    QCOMPARE(testo("txtda")->text(), QStringLiteral("1"));
    QCOMPARE(testo("txta")->text(), QStringLiteral("30"));
    for (int i = 0; i < 2; ++i) {
        auto* passo = area_->findChild<QSpinBox*>(QStringLiteral("UpDown1_%1").arg(i));
        QCOMPARE(passo->minimum(), 1);
        QCOMPARE(passo->maximum(), 30);
    }
    QCOMPARE(area_->ambito().tratto, (TrattoConcorsi{1, 30}));
    const ArchivioEstrazioni vuoto;
    area_->apri(vuoto, {});
    QCOMPARE(testo("txta")->text(), QStringLiteral("1"));
    QCOMPARE(data("lbldata2"), QString{});
}

void TestAreaParametri::passano_solo_cifre_e_due_punti_data() {
    QTest::addColumn<QString>("tasti");
    QTest::addColumn<QString>("resta");
    QTest::addColumn<int>("concorso");
    QTest::newRow("cifre") << "12" << "12" << 12;
    QTest::newRow("lettere") << "1a2b" << "12" << 12;
    QTest::newRow("segni") << "-1.2,3+4 5" << "12345" << 12345;
    QTest::newRow("due punti") << "1:2" << "1:2" << 1;
    QTest::newRow("solo due punti") << ":" << ":" << 0;
    QTest::newRow("zero") << "0" << "0" << 0;
    QTest::newRow("punto e virgola, uno dopo i due punti") << "1;" << "1" << 1;
    QTest::newRow("barra, uno prima dello zero") << "1/" << "1" << 1;
    QTest::newRow("molte cifre") << "99999999999999999999" << "99999999999999999999"
                                 << std::numeric_limits<int>::max();
}

void TestAreaParametri::passano_solo_cifre_e_due_punti() {
    QFETCH(QString, tasti);
    QFETCH(QString, resta);
    QFETCH(int, concorso);
    QLineEdit* t = testo("txtda");
    t->setFocus();
    t->selectAll();
    QTest::keyClick(t, Qt::Key_Backspace);
    QCOMPARE(t->text(), QString{});
    QCOMPARE(area_->ambito().tratto.da, 0);
    QTest::keyClicks(t, tasti);
    QCOMPARE(t->text(), resta);
    QCOMPARE(area_->ambito().tratto.da, concorso);
}

void TestAreaParametri::all_uscita_il_valore_torna_nei_limiti_data() {
    QTest::addColumn<QString>("tasti");
    QTest::addColumn<QString>("resta");
    QTest::newRow("oltre l'ultimo") << "31" << "30";
    QTest::newRow("molto oltre") << "99999999999999999999" << "30";
    QTest::newRow("zero") << "0" << "1";
    QTest::newRow("vuota") << "" << "1";
    QTest::newRow("due punti") << ":5" << "1";
    QTest::newRow("l'ultimo") << "30" << "30";
    QTest::newRow("dentro") << "17" << "17";
}

void TestAreaParametri::all_uscita_il_valore_torna_nei_limiti() {
    QFETCH(QString, tasti);
    QFETCH(QString, resta);
    for (const char* nome : {"txtda", "txta"}) {
        QLineEdit* t = testo(nome);
        t->setFocus();
        t->selectAll();
        QTest::keyClick(t, Qt::Key_Backspace);
        QTest::keyClicks(t, tasti);
        QCOMPARE(t->text(), tasti);  // nothing is mended while one is still typing
        QTest::keyClick(t, Qt::Key_Tab);
        QTRY_COMPARE(t->text(), resta);
    }
}

void TestAreaParametri::le_frecce_la_rotella_e_le_pagine_spostano() {
    auto* passo = area_->findChild<QSpinBox*>(QStringLiteral("UpDown1_0"));
    QLineEdit* t = testo("txtda");
    QSignalSpy avvisi{area_, &AreaParametri::tratto_cambiato};
    t->setFocus();
    QTest::keyClick(t, Qt::Key_Up);
    QCOMPARE(t->text(), QStringLiteral("2"));
    QTest::keyClick(t, Qt::Key_PageUp);
    QCOMPARE(t->text(), QStringLiteral("12"));
    QTest::keyClick(t, Qt::Key_PageDown);
    QTest::keyClick(t, Qt::Key_Down);
    QTest::keyClick(t, Qt::Key_Down);
    QCOMPARE(t->text(), QStringLiteral("1"));
    QStyleOptionSpinBox opzione;
    opzione.initFrom(passo);
    opzione.subControls = QStyle::SC_All;
    const QPoint su =
        passo->style()->subControlRect(QStyle::CC_SpinBox, &opzione, QStyle::SC_SpinBoxUp, passo).center();
    QTest::mouseClick(passo, Qt::LeftButton, {}, su);
    QCOMPARE(t->text(), QStringLiteral("2"));
    QWheelEvent giro{QPointF{5, 5},
                     passo->mapToGlobal(QPointF{5, 5}),
                     {},
                     {0, 120},
                     Qt::NoButton,
                     Qt::NoModifier,
                     Qt::NoScrollPhase,
                     false};
    QApplication::sendEvent(passo, &giro);
    QCOMPARE(t->text(), QStringLiteral("3"));
    QCOMPARE(area_->ambito().tratto.da, 3);
    QCOMPARE(avvisi.count(), 6);  // one a change; the step below 1 was none
}

void TestAreaParametri::la_data_segue_ogni_cambio() {
    const auto giorno = [this](int c) { return QString::fromStdString(testo_data(*archivio_.data_bari(c))); };
    QCOMPARE(data("lbldata1"), giorno(1));
    QCOMPARE(data("lbldata2"), giorno(30));
    QLineEdit* t = testo("txtda");
    t->setFocus();
    t->selectAll();
    QTest::keyClicks(t, QStringLiteral("2"));
    QCOMPARE(data("lbldata1"), giorno(2));
    QTest::keyClicks(t, QStringLiteral("5"));
    QCOMPARE(data("lbldata1"), giorno(25));
    QTest::keyClick(t, Qt::Key_Backspace);
    QTest::keyClick(t, Qt::Key_Backspace);
    QCOMPARE(data("lbldata1"), QString{});
    QCOMPARE(data("lbldata2"), giorno(30));
}

void TestAreaParametri::la_data_torna_con_il_valore_che_c_era() {
    const auto giorno = [this](int c) { return QString::fromStdString(testo_data(*archivio_.data_bari(c))); };
    for (const bool con_invio : {true, false}) {
        QLineEdit* t = testo("txta");
        t->setFocus();
        t->selectAll();
        QTest::keyClicks(t, QStringLiteral("99"));  // beyond the last: the box holds 30 already
        QCOMPARE(data("lbldata2"), QString{});
        if (con_invio)
            QTest::keyClick(t, Qt::Key_Return);
        else
            intervallo()->setFocus();
        QCOMPARE(t->text(), QStringLiteral("30"));
        QCOMPARE(data("lbldata2"), giorno(30));
    }
    QLineEdit* t = testo("txtda");
    t->setFocus();
    t->selectAll();
    QTest::keyClicks(t, QStringLiteral("0"));
    area_->riporta_tratto();
    QCOMPARE(t->text(), QStringLiteral("1"));
    QCOMPARE(data("lbldata1"), giorno(1));
}

void TestAreaParametri::chi_ascolta_sente_la_data_stessa() {
    for (const char* nome : {"lbldata1", "lbldata2"}) {
        auto* l = area_->findChild<QLabel*>(QLatin1String{nome});
        QVERIFY(!l->text().isEmpty());
        QCOMPARE(QAccessible::queryAccessibleInterface(l)->text(QAccessible::Name), l->text());
        QVERIFY(!l->accessibleDescription().isEmpty());
    }
}

void TestAreaParametri::senza_la_riga_di_bari_la_data_manca() {
    QLineEdit* t = testo("txtda");
    t->setFocus();
    t->selectAll();
    QTest::keyClicks(t, QStringLiteral("7"));
    QCOMPARE(data("lbldata1"), QString{});
    QTest::keyClick(t, Qt::Key_Up);
    QVERIFY(!data("lbldata1").isEmpty());
}

void TestAreaParametri::il_primo_puo_superare_l_ultimo() {
    testo("txtda")->setText(QStringLiteral("20"));
    testo("txta")->setText(QStringLiteral("10"));
    area_->riporta_tratto();
    QCOMPARE(area_->ambito().tratto, (TrattoConcorsi{20, 10}));
    QVERIFY((VistaEstrazioni{archivio_, area_->ambito()}.vuota()));
}

void TestAreaParametri::il_testo_dei_concorsi() {
    QCOMPARE(area_->testo_concorsi(),
             QStringLiteral("dal concorso 1 del 01/01/2000 al concorso 30 del 30/01/2000"));
}

void TestAreaParametri::ogni_controllo_ha_un_nome_per_chi_non_vede() {
    for (int i = 0; i < 12; ++i) QVERIFY(!ruota(i)->accessibleName().isEmpty());
    for (const char* nome : {"txtda", "txta"}) QVERIFY(!testo(nome)->accessibleName().isEmpty());
    QCOMPARE(testo("txtda")->accessibleName(), QStringLiteral("dal concorso"));
    QCOMPARE(intervallo()->accessibleName(), QStringLiteral("Intervallo"));
}

void TestAreaParametri::la_casella_di_cifre() {
    CasellaCifre c;
    c.show();
    QVERIFY(QTest::qWaitForWindowActive(&c));
    QTest::keyClicks(&c, QStringLiteral("a1:2-"));
    QCOMPARE(c.text(), QStringLiteral("12"));
    QCOMPARE(c.numero(), 12);
    QTest::keyClick(&c, Qt::Key_Backspace);
    QCOMPARE(c.numero(), 1);
    c.clear();
    QCOMPARE(c.numero(), 0);
    QTest::keyClicks(&c, QStringLiteral("99999999999999999999999"));
    QVERIFY(c.numero() > 90);
    QApplication::clipboard()->setText(QStringLiteral("x7"));
    c.clear();
    QTest::keyClick(&c, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(c.text(), QString{});
    // The text is selected when the keyboard comes: typing replaces it.
    c.setText(QStringLiteral("45"));
    c.clearFocus();
    c.setFocus();
    QCOMPARE(c.selectedText(), QStringLiteral("45"));
    QTest::keyClicks(&c, QStringLiteral("8"));
    QCOMPARE(c.text(), QStringLiteral("8"));
}

QTEST_MAIN(TestAreaParametri)
#include "test_area_parametri.moc"

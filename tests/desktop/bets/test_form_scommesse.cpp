#include "bets/casella_limite.h"
#include "bets/form_scommesse.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QtTest>
#include <filesystem>
#include <memory>
#include <vector>

using namespace sortimetra;

namespace {

/// Twelve draws of the ten wheels; on Bari the sum is 227 in the last one, else 15.
ArchivioEstrazioni archivio_piccolo() {
    std::string testo;
    for (int c = 1; c <= 12; ++c)
        for (int w = 0; w < kRuote; ++w)
            testo += std::to_string(c) + " " + std::string{kNomiRuote[static_cast<std::size_t>(w)].codice} +
                     (w == 0 && c == 12 ? " 45 46 47 48 41\n" : " 1 2 3 4 5\n");
    return prove::da_testo(testo);
}

}  // namespace

class TestFormScommesse final : public QObject {
    Q_OBJECT

    std::unique_ptr<prove::CartellaProva> cartella_;
    std::unique_ptr<Sessione> sessione_;
    ArchivioEstrazioni archivio_ = archivio_piccolo();
    std::unique_ptr<Form_scommesse> form_;

    void apri() {
        form_ = std::make_unique<Form_scommesse>(*sessione_);
        form_->apri(*trova_ricerca("scommesse lotto"), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    template <class Tipo>
    [[nodiscard]] Tipo* trova(const QString& nome) const {
        return form_->findChild<Tipo*>(nome);
    }
    void clic(const char* nome) const {
        auto* b = trova<QAbstractButton>(QString::fromLatin1(nome));
        QVERIFY2(b != nullptr, nome);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    [[nodiscard]] QString file(const char* nome) const {
        return QString::fromStdString((cartella_->percorso() / nome).string());
    }
    [[nodiscard]] QByteArray letto(const char* nome) const {
        QFile f{file(nome)};
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray{};
    }
    void scrivi(const char* nome, const QByteArray& testo) const {
        QFile f{file(nome)};
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(testo);
    }
    [[nodiscard]] ModelloRisultato* modello() const { return form_->griglia()->modello(); }
    [[nodiscard]] QString riga(int r) const {
        QStringList celle;
        for (int c = 0; c < modello()->columnCount(); ++c) celle << modello()->testo(r, c);
        return celle.join(QLatin1Char{' '});
    }
    [[nodiscard]] QLineEdit* limite() const { return trova<QLineEdit>("txtLimite"); }
    void imposta_indirizzo(const QString& indirizzo) const {
        QSettings{file_posti(*sessione_), QSettings::IniFormat}.setValue("giochi_online/indirizzo",
                                                                         indirizzo);
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        cartella_ = std::make_unique<prove::CartellaProva>();
        sessione_ = std::make_unique<Sessione>(Sessione{.percorso_programma = cartella_->percorso()});
    }
    void cleanup() { form_.reset(); }

    void come_l_ultima_volta() {
        form_.reset();
        apri();
        trova<QComboBox>(QStringLiteral("Combo1"))->setCurrentIndex(3);
        clic("cmdAvvia");
        form_->close();
        apri();
        QCOMPARE(trova<QComboBox>(QStringLiteral("Combo1"))->currentIndex(), 0);
        form_->come_l_ultima_volta();
        QCOMPARE(trova<QComboBox>(QStringLiteral("Combo1"))->currentIndex(), 3);
    }

    void ogni_controllo_ha_il_suo_nome() {
        apri();
        QCOMPARE(form_->windowTitle(), QStringLiteral("Scommesse Lotto"));
        auto* combo = trova<QComboBox>("Combo1");
        QCOMPARE(combo->count(), 9);
        QCOMPARE(combo->itemText(3), QStringLiteral("Dispari vs Pari"));
        QCOMPARE(combo->itemText(8), QStringLiteral("5° Estratto"));
        QCOMPARE(trova<QCheckBox>("CheckRuota_10")->text(), QStringLiteral("TUTTE LE RUOTE"));
        QCOMPARE(trova<QLabel>("Label3")->text().remove('&'), QStringLiteral("Limite Under/Over"));
        QCOMPARE(trova<QPushButton>("Command1")->text().remove('&'), QStringLiteral("Giochi Online"));
        QCOMPARE(trova<QPushButton>("cmdAvvia")->text(), QStringLiteral("Avvia &Ricerca"));
        QVERIFY(trova<QPushButton>("cmdesci") != nullptr);
        QCOMPARE(modello()->columnCount(), 17);
        QCOMPARE(modello()->tabella()->titoli.size(), std::size_t{3});
    }

    void sotto_e_sopra_il_limite() {
        apri();
        clic("cmdAvvia");
        QCOMPARE(modello()->rowCount(), 11);
        QCOMPARE(riga(0), QStringLiteral("Bari 12 0 0 0 12 0 U U U U U U U U U U"));
        QCOMPARE(riga(10).trimmed(), QStringLiteral("Nazionale"));
        QCOMPARE(modello()->tabella()->titoli[1][7], std::string{"12"});
        form_->close();
        // The second time the file is read up to its comma.
        apri();
        clic("cmdAvvia");
        QCOMPARE(riga(0), QStringLiteral("Bari 11 1 0 1 0 11 O U U U U U U U U U"));
    }

    void il_file_nasce_con_la_finestra() {
        QVERIFY(!QFile::exists(file("uo.dat")));
        apri();
        QCOMPARE(letto("uo.dat"), QByteArray{"\"227,5\"\r\n"});
        QCOMPARE(limite()->text(), QStringLiteral("227,5"));
        QCOMPARE(trova<QLabel>("lblinvigore")->text(), QStringLiteral("in vigore: 227,5"));
        form_.reset();
        apri();
        QCOMPARE(limite()->text(), QStringLiteral("227,5"));
        QCOMPARE(trova<QLabel>("lblinvigore")->text(), QStringLiteral("in vigore: 227"));
        // Left once, it is what it says.
        limite()->setFocus();
        QTest::keyClick(limite(), Qt::Key_Tab);
        QCOMPARE(trova<QLabel>("lblinvigore")->text(), QStringLiteral("in vigore: 227,5"));
    }

    void nella_casella_del_limite_si_riscrive_soltanto() {
        apri();
        QLineEdit* casella = limite();
        casella->setFocus();
        QCOMPARE(casella->selectedText(), QStringLiteral("227,5"));
        QTest::keyClicks(casella, "2a-3 0.2:5");
        QCOMPARE(casella->text(), QStringLiteral("230,2:5"));
        for (const Qt::Key k : {Qt::Key_Backspace, Qt::Key_Delete}) {
            QTest::keyClick(casella, k);
            casella->setCursorPosition(1);
            QTest::keyClick(casella, k);
            QCOMPARE(casella->text(), QStringLiteral("230,2:5"));
        }
        QApplication::clipboard()->setText("9");
        casella->selectAll();
        for (const Qt::Key k : {Qt::Key_V, Qt::Key_X, Qt::Key_Z, Qt::Key_Backspace})
            QTest::keyClick(casella, k, Qt::ControlModifier);
        QTest::keyClick(casella, Qt::Key_Delete, Qt::ShiftModifier);
        QTest::keyClick(casella, Qt::Key_Insert, Qt::ShiftModifier);
        QCOMPARE(casella->text(), QStringLiteral("230,2:5"));
        // Selected with the keys, typed over.
        QTest::keyClick(casella, Qt::Key_Home);
        QTest::keyClick(casella, Qt::Key_End, Qt::ShiftModifier);
        QTest::keyClicks(casella, "100");
        QCOMPARE(casella->text(), QStringLiteral("100"));
    }

    void lasciare_il_limite_lo_scrive() {
        apri();
        clic("cmdAvvia");
        QCOMPARE(modello()->rowCount(), 11);
        limite()->setFocus();
        limite()->selectAll();
        QTest::keyClicks(limite(), "1000.25");
        QTest::keyClick(limite(), Qt::Key_Tab);
        QCOMPARE(limite()->text(), QStringLiteral("1.000,3"));
        QCOMPARE(letto("uo.dat"), QByteArray{"\"1.000,3\"\r\n"});
        QVERIFY(trova<QLabel>("lblinvigore")->text().endsWith("1.000,3"));
        // Another limit, another table.
        QCOMPARE(modello()->rowCount(), 0);
    }

    void illeggibile_o_vuoto_tiene_limite_e_file() {
        apri();
        for (const char* testo : {":", ",", "2:5"}) {
            limite()->setFocus();
            limite()->selectAll();
            QTest::keyClicks(limite(), QString::fromLatin1(testo));
            QTest::keyClick(limite(), Qt::Key_Tab);
            QCOMPARE(limite()->text(), QStringLiteral("227,5"));
        }
        limite()->clear();
        limite()->setFocus();
        QTest::keyClick(limite(), Qt::Key_Tab);
        QCOMPARE(limite()->text(), QStringLiteral("227,5"));
        QCOMPARE(letto("uo.dat"), QByteArray{"\"227,5\"\r\n"});
        QCOMPARE(trova<QLabel>("lblinvigore")->text(), QStringLiteral("in vigore: 227,5"));
    }

    void invio_nella_casella_cerca_con_quello_che_dice() {
        apri();
        limite()->setFocus();
        limite()->selectAll();
        QTest::keyClicks(limite(), "0");
        QTest::keyClick(limite(), Qt::Key_Return);
        QCOMPARE(letto("uo.dat"), QByteArray{"\"0,0\"\r\n"});
        QCOMPARE(riga(0), QStringLiteral("Bari 0 12 0 12 0 0 O O O O O O O O O O"));
    }

    void il_tipo_di_ricerca_svuota_e_spegne_il_limite() {
        apri();
        clic("cmdAvvia");
        auto* combo = trova<QComboBox>("Combo1");
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
        QCOMPARE(combo->currentIndex(), 1);
        QCOMPARE(modello()->rowCount(), 0);
        QVERIFY(!limite()->isEnabled());
        QVERIFY(!trova<QLabel>("Label3")->isEnabled());
        QCOMPARE(modello()->tabella()->titoli[0][1], std::string{"Primo"});
        clic("cmdAvvia");
        QCOMPARE(riga(1), QStringLiteral("Cagliari 0 12 0 12 0 0 U U U U U U U U U U"));
        combo->setCurrentIndex(4);
        QCOMPARE(modello()->columnCount(), 20);
        clic("cmdAvvia");
        QCOMPARE(riga(0).left(28), QStringLiteral("Bari 11 1 0 1 0 11 0 12 0 31"));
        combo->setCurrentIndex(0);
        QVERIFY(limite()->isEnabled());
    }

    void le_ruote_non_contano_ma_svuotano() {
        apri();
        QVERIFY(trova<QCheckBox>("CheckRuota_10")->isChecked());
        clic("cmdAvvia");
        const auto prima = *form_->risultato();
        clic("CheckRuota_3");
        QCOMPARE(modello()->rowCount(), 0);
        clic("cmdAvvia");
        QCOMPARE(*form_->risultato(), prima);
    }

    void un_ambito_vuoto_da_zeri_senza_messaggio() {
        apri();
        MessaggiDiProva detti;
        auto* da = trova<QLineEdit>("txtda");
        auto* a = trova<QLineEdit>("txta");
        da->setFocus();
        da->selectAll();
        QTest::keyClicks(da, "9");
        a->setFocus();
        a->selectAll();
        QTest::keyClicks(a, "3");
        clic("cmdAvvia");
        QVERIFY(detti.detti.isEmpty());
        QCOMPARE(riga(0), QStringLiteral("Bari 0 0 0 0 0 0"));
        QCOMPARE(modello()->rowCount(), 11);
    }

    void un_file_che_non_si_legge_si_dice_nella_finestra() {
        std::filesystem::create_directory(cartella_->percorso() / "uo.dat");
        apri();
        QVERIFY(trova<QLabel>("lblinvigore")->text().contains("uo.dat"));
        QCOMPARE(limite()->text(), QStringLiteral("227,5"));
        clic("cmdAvvia");
        QCOMPARE(modello()->rowCount(), 11);
    }

    // ---- the betting client ----

    void giochi_online_senza_indirizzo_sicuro_o_senza_programma() {
        scrivi("client.exe", "x");
        apri();
        int trasferiti = 0;
        int avviati = 0;
        form_->giochi_online.trasferisci = [&](const QUrl&, const QString&) { return ++trasferiti > 0; };
        form_->giochi_online.avvia = [&](const QString&) { return ++avviati > 0; };
        const QString detto =
            "Impossibile scommettere. Verificare se è disponibile una connessione a Internet.";
        for (const char* indirizzo : {"", "http://esempio.invalid", "ftp://esempio.invalid",
                                      "esempio.invalid", "file:///etc/passwd", "https://"}) {
            MessaggiDiProva detti;
            imposta_indirizzo(QString::fromLatin1(indirizzo));
            clic("Command1");
            QCOMPARE(detti.detti.size(), 1);
            QCOMPARE(detti.detti[0].testo, detto);
        }
        imposta_indirizzo("https://esempio.invalid");
        QVERIFY(QFile::remove(file("client.exe")));
        MessaggiDiProva detti;
        clic("Command1");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(trasferiti, 0);
        QCOMPARE(avviati, 0);
    }

    void giochi_online_se_il_trasferimento_fallisce() {
        scrivi("client.exe", "x");
        scrivi("host", "vecchio");
        imposta_indirizzo("https://esempio.invalid");
        apri();
        bool avviato = false;
        form_->giochi_online.trasferisci = [](const QUrl&, const QString& dove) {
            QFile f{dove};
            if (f.open(QIODevice::WriteOnly)) f.write("mezzo");
            return false;
        };
        form_->giochi_online.avvia = [&](const QString&) { return avviato = true; };
        MessaggiDiProva detti;
        clic("Command1");
        QCOMPARE(detti.detti.size(), 1);
        QVERIFY(!avviato);
        QCOMPARE(letto("host"), QByteArray{"vecchio"});
        QCOMPARE(QDir{file("")}.entryList({"host*"}).size(), 1);
    }

    void giochi_online() {
        scrivi("client.exe", "x");
        scrivi("host", "vecchio");
        imposta_indirizzo("https://esempio.invalid:8443/altro?x=1");
        apri();
        QUrl chiesto;
        QString avviato;
        form_->giochi_online.trasferisci = [&](const QUrl& indirizzo, const QString& dove) {
            chiesto = indirizzo;
            QFile f{dove};
            return f.open(QIODevice::WriteOnly) && f.write("nuovo") == 5;
        };
        form_->giochi_online.avvia = [&](const QString& programma) {
            avviato = programma;
            return true;
        };
        MessaggiDiProva detti;
        clic("Command1");
        QVERIFY(detti.detti.isEmpty());
        QCOMPARE(chiesto, QUrl{"https://esempio.invalid:8443/download/host"});
        QCOMPARE(avviato, file("client.exe"));
        QCOMPARE(letto("host"), QByteArray{"nuovo"});
    }
};

QTEST_MAIN(TestFormScommesse)
#include "test_form_scommesse.moc"

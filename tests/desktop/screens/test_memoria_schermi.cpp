// Whatever stands in place of the windows' memory, they open on the screen, and remember again where they
// can.

#include "catalogue/form_ricerche.h"
#include "catalogue/form_ricerche_schermi.h"
#include "screens/finestra_ricerca.h"
#include "screens/memoria_schermi.h"
#include "screens/messaggi.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "screens/ultima_volta.h"
#include "support/archivi.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QScreen>
#include <QtTest>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <string_view>

using namespace sortimetra;

namespace {

namespace fs = std::filesystem;

/// A memory as the program leaves it, and one value after the other that it would never write.
std::string scritta(std::string_view posto, std::string_view intero = "false") {
    std::string testo = "[General]\nriapri%20come%20l%27ultima%20volta=true\ncaso=true\nfrecce=false\n";
    for (const std::string_view finestra : {"form_ricerche", "Form_stat", "Form_posizione", "form_tab_pos"})
        testo.append("[")
            .append(finestra)
            .append("]\nposto=")
            .append(posto)
            .append("\nintero=")
            .append(intero)
            .append("\n");
    return testo;
}

const QString kConAccenti = QStringLiteral("Più; \"così\", €\t@");

/// Lists in lists, as Qt writes an object into such a file.
std::string annidato(int volte) {
    std::string testo = "@Variant(";
    for (int i = 0; i < volte; ++i) testo += R"(\0\0\0\x9\0\0\0\x1)";
    return testo + ")";
}

std::string di_byte(std::mt19937& caso, std::size_t quanti) {
    std::string testo(quanti, '\0');
    for (char& c : testo) c = static_cast<char>(caso());
    return testo;
}

}  // namespace

class TestMemoriaSchermi final : public QObject {
    Q_OBJECT

    std::unique_ptr<prove::CartellaProva> cartella_;
    Sessione sessione_;
    ArchivioEstrazioni archivio_ = prove::archivio_casuale(7);

    [[nodiscard]] fs::path file() const { return cartella_->percorso() / "schermi.ini"; }
    void metti(std::string_view testo) const {
        std::ofstream{file(), std::ios::binary | std::ios::trunc} << testo;
    }

    /// The window is on the screen, whole (if that is large enough) and large enough to be used.
    static void guarda(const QWidget& finestra) {
        const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
        const QSize minima = finestra.minimumSizeHint();
        const QRect g = finestra.geometry();
        const QString come = QStringLiteral("%1: %2 x %3 a %4, %5")
                                 .arg(finestra.objectName())
                                 .arg(g.width())
                                 .arg(g.height())
                                 .arg(g.left())
                                 .arg(g.top());
        // (The platform adds a frame of its own to windows that are not moved by us.)
        constexpr QMargins kCornice{kBarraTitolo, kBarraTitolo, kBarraTitolo, kBarraTitolo};
        const QRect posto{schermo.topLeft(), schermo.size().expandedTo(minima)};
        QVERIFY2(schermo.contains(g.topLeft()) && posto.marginsAdded(kCornice).contains(g), qPrintable(come));
        QVERIFY2(g.width() >= 320 && g.height() >= 200, qPrintable(come));
    }

    /// Opens the catalogue and the first `quanti` search windows, and closes them.
    void apri_finestre(std::size_t quanti, bool cerca = false) {
        {
            form_ricerche catalogo{sessione_};
            catalogo.show();
            guarda(catalogo);
            catalogo.close();
        }
        if (QTest::currentTestFailed()) return;
        for (const RigaSchermo& riga : schermi_del_programma()) {
            const Ricerca* ricerca = nullptr;
            for (const Ricerca& r : ricerche())
                if (ricerca == nullptr && r.pronta() && schermo_di(r) == riga.schermo) ricerca = &r;
            if (ricerca == nullptr) continue;
            if (quanti-- == 0) return;
            const std::unique_ptr<QWidget> finestra{riga.crea(sessione_)};
            riga.attiva(*finestra, *ricerca, archivio_);
            finestra->show();
            guarda(*finestra);
            auto* ricerche_sue = cerca ? qobject_cast<FinestraRicerca*>(finestra.get()) : nullptr;
            if (ricerche_sue != nullptr) ricerche_sue->avvia();
            finestra->close();
            if (QTest::currentTestFailed()) return;
        }
    }

    /// What is written now is read back, by Qt alone too.
    void si_scrive_di_nuovo() const {
        {
            MemoriaSchermi memoria{sessione_};
            memoria.setValue("prova/numero", 5);
            memoria.setValue("prova/nome", kConAccenti);
            memoria.sync();
            QCOMPARE(memoria.status(), QSettings::NoError);
        }
        const QString nome = file_posti(sessione_);
        const QSettings letta{nome, QSettings::IniFormat};
        QCOMPARE(letta.value("prova/numero").toInt(), 5);
        QVERIFY(letta.value("form_ricerche/posto").toRect().isValid());
        QCOMPARE(MemoriaSchermi{sessione_}.value("prova/nome").toString(), kConAccenti);
    }
    /// Nothing is remembered, and nothing waits.
    void non_si_ricorda() const {
        {
            MemoriaSchermi memoria{sessione_};
            QVERIFY(!memoria.isWritable());
            memoria.setValue("prova/numero", 5);
        }
        QVERIFY(!MemoriaSchermi{sessione_}.contains("prova/numero"));
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        cartella_ = std::make_unique<prove::CartellaProva>();
        sessione_.percorso_programma = cartella_->percorso();
    }

    void cio_che_e_innocuo();
    void valori_ostili_data();
    void valori_ostili();
    void byte_a_caso_e_file_tronchi();
    void troppo_grande();
    void una_cartella_una_pipe_un_file_negato();
    void lucchetti_lasciati();
    void domande_ostili();
};

void TestMemoriaSchermi::cio_che_e_innocuo() {
    for (const char* testo :
         {"", "a=1", "[Form_stat]\nposto=@Rect(0 92 800 660)\r\n", "k\\da=1\n", "a=\"x;\\\"y\\\\\"",
          "a=uno\\ndue", "a=b\\\\", "a=Pi\\xf9", "a=\\0\\x1f\\x30;", "a=\"\\xe8, \\x20ac\""})
        QVERIFY2(innocuo(testo), testo);
    for (const char* testo :
         {"a=@Variant(\\0)", "a=@Va\"\"riant(", "a=@Va\\riant(\\q", "a=\\x40Va\\x72iant(", "a=@Va\\x72iant(",
          "a=@Va\\x0072iant(", "a=@Va\\q", "a=\\x10040", "a=\\x", "a=\\100", "a=1\\", "a=\"1", "a\"b=1",
          "; [\"]", "k\\", "a=@DateTime(", "a=1,@DateTime("})
        QVERIFY2(!innocuo(testo), testo);
}

void TestMemoriaSchermi::valori_ostili_data() {
    QTest::addColumn<QByteArray>("testo");
    const auto riga = [](const char* nome, const std::string& testo) {
        QTest::newRow(nome) << QByteArray::fromStdString(testo);
    };
    riga("vuoto", "");
    for (const char* posto : {"@Rect(0 0 1 1)",
                              "@Rect(0 0 0 0)",
                              "@Rect(-50 -50 100 100)",
                              "@Rect(100 100 -5 -5)",
                              "@Rect(2147483647 2147483647 2147483647 2147483647)",
                              "@Rect(-2147483000 0 -655 660)",
                              "@Rect(-2147483648 -2147483648 2147483647 2147483647)",
                              "@Rect(0 0 999999 999999)",
                              "@Rect(nan nan nan nan)",
                              "@Rect(1e300 0 inf 5)",
                              "@Rect()",
                              "@Rect(",
                              "@Rect(1 2)",
                              "@Rect(99999999999999999999 0 800 600)",
                              "@Size(800 600)",
                              "@Point(1 1)",
                              "@Invalid()",
                              "boh",
                              "1, 2, 3, 4",
                              "@ByteArray(AdnQywADAAAAAAAA)",
                              "\"@ByteArray(////////)\"",
                              "\\xffff\\x0\\x0",
                              "\"senza fine",
                              "\\",
                              "@Variant(\\0\\0\\0\\x9\\xff\\xff\\xff\\xff)",
                              "@DateTime(\\0\\0\\0\\x10)"})
        for (const char* intero : {"true", "forse"})
            riga(qPrintable(QStringLiteral("%1 %2").arg(posto, intero)), scritta(posto, intero));
    riga("liste in liste", scritta(annidato(50'000)));
    riga("righe lunghissime",
         "[form_ricerche]\nposto=" + std::string(500'000, 'x') + "\n" + std::string(400'000, '[') + "\n");
    riga("tante virgole", "[form_ricerche]\nposto=" + std::string(900'000, ',') + "\n");
    riga("tante sezioni", [] {
        std::string testo;
        for (int i = 0; i < 60'000; ++i) testo += "[s" + std::to_string(i) + "]\na=1\n";
        return testo;
    }());
    riga("zeri", std::string(100'000, '\0'));
}

void TestMemoriaSchermi::valori_ostili() {
    QFETCH(QByteArray, testo);
    metti(testo.toStdString());
    apri_finestre(3);
    if (!QTest::currentTestFailed()) si_scrive_di_nuovo();
}

void TestMemoriaSchermi::byte_a_caso_e_file_tronchi() {
    const std::string sana = scritta("@Rect(30 40 700 500)");
    for (unsigned seme = 1; seme <= 200; ++seme) {
        std::mt19937 caso{seme};
        std::string testo = sana;
        if (seme % 3 == 0) {
            testo = di_byte(caso, caso() % 3000);
        } else if (seme % 3 == 1) {
            testo.resize(caso() % testo.size());
        } else {
            for (int i = 0; i < 8; ++i) testo[caso() % testo.size()] = static_cast<char>(caso());
        }
        metti(testo);
        apri_finestre(1);
        if (!QTest::currentTestFailed()) si_scrive_di_nuovo();
        if (QTest::currentTestFailed()) {
            qWarning("seme %u", seme);
            return;
        }
    }
}

void TestMemoriaSchermi::troppo_grande() {
    metti(scritta("@Rect(30 40 700 500)"));
    fs::resize_file(file(), std::uintmax_t{1} << 30U);
    apri_finestre(2);
    si_scrive_di_nuovo();
    QCOMPARE(fs::file_size(file().string() + ".guasto"), std::uintmax_t{1} << 30U);
    QVERIFY(fs::file_size(file()) < 10'000);
}

void TestMemoriaSchermi::una_cartella_una_pipe_un_file_negato() {
    fs::create_directory(file());
    apri_finestre(2);
    non_si_ricorda();
    QVERIFY(fs::is_directory(file()) && fs::is_empty(file()));
    fs::remove(file());

    QCOMPARE(mkfifo(file().c_str(), 0600), 0);
    apri_finestre(2);
    non_si_ricorda();
    QVERIFY(fs::is_fifo(file()));
    fs::remove(file());

    if (geteuid() == 0) return;  // nothing is denied to root
    metti(scritta("@Rect(30 40 700 500)"));
    fs::permissions(file(), fs::perms::none);
    apri_finestre(2);
    non_si_ricorda();
    fs::permissions(file(), fs::perms::owner_all);
    QVERIFY(fs::file_size(file()) > 0);
}

void TestMemoriaSchermi::lucchetti_lasciati() {
    const fs::path lucchetto = file().string() + ".lock";
    fs::create_directory(lucchetto);
    apri_finestre(1);
    non_si_ricorda();
    fs::remove(lucchetto);
    QCOMPARE(mkfifo(lucchetto.c_str(), 0600), 0);
    apri_finestre(1);
    non_si_ricorda();
    fs::remove(lucchetto);
    // Of a program that is gone: it is taken away.
    std::ofstream{lucchetto} << "999999999\nsortimetra\n"
                             << QSysInfo::machineHostName().toStdString() << "\n";
    apri_finestre(1);
    si_scrive_di_nuovo();
    QVERIFY(!fs::exists(lucchetto));
}

void TestMemoriaSchermi::domande_ostili() {
    MessaggiDiProva zitti;
    for (const char* valore :
         {"-1", "2147483648", "99999999999999999999", "nan", "", "-2147483648", "\"a;b,c\"", "2147483647",
          "TUTTE TUTTE BA", "2147483647 crescente", "-7 decrescente", "9 9 9"}) {
        std::string testo = scritta("@Rect(30 40 700 500)") + "[ultima%20volta]\n";
        for (const Ricerca& r : ricerche()) {
            const QByteArray chiave = QByteArray::fromStdString(std::string{r.chiave()}).toPercentEncoding();
            for (const char* nome : {"da", "a", "ruote", "intervallo", "ora", "ordine"})
                testo += chiave.toStdString() + "\\" + nome + "=" + valore + "\n";
            for (const Opzione* o : r.opzioni)
                testo += chiave.toStdString() + "\\" +
                         QByteArray::fromStdString(std::string{o->nome}).toPercentEncoding().toStdString() +
                         "=" + valore + "\n";
        }
        metti(testo);
        const Ricerca& novanta = *trova_ricerca("ritardo e frequenza dei 90 numeri");
        QVERIFY(riapre_come_l_ultima_volta(sessione_));
        QVERIFY(ultima_volta(sessione_, novanta, archivio_.ultimo_concorso()).has_value());
        apri_finestre(20, true);
        if (QTest::currentTestFailed()) {
            qWarning("valore %s", valore);
            return;
        }
    }
}

QTEST_MAIN(TestMemoriaSchermi)
#include "test_memoria_schermi.moc"

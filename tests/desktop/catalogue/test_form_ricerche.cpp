#include "catalogue/form_ricerche.h"
#include "catalogue/form_ricerche_elenco.h"
#include "catalogue/form_ricerche_gruppo.h"
#include "catalogue/form_ricerche_ultima.h"
#include "files/memoria_ricerca.h"
#include "printing/form_anteprima.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "stores/form_aggiorna.h"
#include "stores/importa.h"
#include "support/archivi.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDropEvent>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QTableView>
#include <QtTest>
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

using namespace sortimetra;

namespace {

namespace fs = std::filesystem;

/// What the last screen was asked for.
QStringList chiavi_aperte;
Concorso ultimo_visto = 0;

/// A screen that only notes what it is asked for: the catalogue is tested here, not the screens.
QWidget* crea_finto(Sessione&) {
    return new QWidget;
}
void attiva_finto(QWidget& finestra, const Ricerca& ricerca, const ArchivioEstrazioni& archivio) {
    finestra.setWindowTitle(
        QString::fromUtf8(ricerca.titolo().data(), static_cast<qsizetype>(ricerca.titolo().size())));
    chiavi_aperte << QString::fromUtf8(ricerca.chiave().data(),
                                       static_cast<qsizetype>(ricerca.chiave().size()));
    ultimo_visto = archivio.ultimo_concorso();
}
constexpr RigaSchermo kFinti[] = {{Schermo::stat, crea_finto, attiva_finto}};

/// A folder with the simulated archive, copied for each test from one that is made once.
struct Cartella {
    prove::CartellaProva prova;
    Sessione sessione{prova.percorso() / "programma"};

    explicit Cartella(const fs::path& archivio = {}) {
        fs::create_directories(sessione.percorso_programma);
        if (!archivio.empty()) fs::copy(archivio, sessione.percorso_archivio());
    }
    [[nodiscard]] std::string ric_ini() const {
        std::ifstream f{sessione.percorso_programma / "ric.ini", std::ios::binary};
        return {std::istreambuf_iterator<char>{f}, {}};
    }
    void scrivi(const fs::path& nome, std::string_view testo) const {
        fs::create_directories((sessione.percorso_programma / nome).parent_path());
        std::ofstream{sessione.percorso_programma / nome, std::ios::binary} << testo;
    }
    [[nodiscard]] MemoriaRicerca memoria() const { return MemoriaRicerca{sessione.percorso_programma}; }
};

struct Finestra {
    form_ricerche form;
    QTableView* griglia = form.findChild<QTableView*>(QStringLiteral("MSHFlexGrid1"));
    QTabBar* schede = form.findChild<QTabBar*>(QStringLiteral("TabStrip1"));
    QLineEdit* cerca = form.findChild<QLineEdit*>(QStringLiteral("txtCerca"));
    QPushButton* conferma = form.findChild<QPushButton*>(QStringLiteral("cmdConferma"));

    explicit Finestra(Sessione& sessione, bool con_archivio = true,
                      std::span<const RigaSchermo> schermi = kFinti)
        : form{sessione, schermi} {
        chiavi_aperte.clear();
        form.show();
        QApplication::setActiveWindow(&form);
        if (!con_archivio) return;
        form.carica_archivio();
        if (!letto()) qFatal("the archive is not read");
    }
    /// Waits until no archive is being read.
    [[nodiscard]] bool letto() const {
        return QTest::qWaitFor([this] { return !form.legge_archivio(); }, 60'000);
    }
    [[nodiscard]] QPushButton* gruppo(int i) const {
        return form.findChild<QPushButton*>(QStringLiteral("cmdRicerche_%1").arg(i));
    }
    [[nodiscard]] CorniceGruppo* cornice(int i) const {
        return form.findChild<CorniceGruppo*>(QStringLiteral("FrameB_%1").arg(i));
    }
    [[nodiscard]] QString testo(const char* etichetta) const {
        return form.findChild<QLabel*>(QString::fromLatin1(etichetta))->text();
    }
    [[nodiscard]] QString riga(int i) const { return griglia->model()->index(i, 0).data().toString(); }
    [[nodiscard]] QString corrente() const {
        return griglia->currentIndex().siblingAtColumn(0).data().toString();
    }
    [[nodiscard]] int righe() const { return griglia->model()->rowCount(); }
    [[nodiscard]] int premuto() const {
        for (int i = 0; i < 7; ++i)
            if (cornice(i)->premuta()) return i;
        return -1;
    }
    void clic_riga(int i, bool doppio = false) const {
        griglia->scrollTo(griglia->model()->index(i, 0));
        const QPoint p = griglia->visualRect(griglia->model()->index(i, 0)).center();
        QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {}, p);
        if (doppio) QTest::mouseDClick(griglia->viewport(), Qt::LeftButton, {}, p);
    }
};

/// An archive that is read only when the test says so, or ends.
struct Lenta {
    std::shared_ptr<std::atomic<bool>> via = std::make_shared<std::atomic<bool>>(false);
    explicit Lenta(form_ricerche& form) {
        form.lettore().guarda = [via = via](const fs::path& dove) {
            via->wait(false);
            return guarda_archivio(dove);
        };
    }
    Lenta(const Lenta&) = delete;
    Lenta& operator=(const Lenta&) = delete;
    ~Lenta() { leggi(); }
    void leggi() const {
        via->store(true);
        via->notify_all();
    }
};

}  // namespace

class TestFormRicerche final : public QObject {
    Q_OBJECT

    prove::CartellaProva comune_;
    fs::path archivio_;

  private slots:
    void initTestCase() {
        // Window places must not be written among the user's.
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((comune_.percorso() / "conf").string()));
        QCoreApplication::setOrganizationName(QStringLiteral("sortimetra-prove"));
        QCoreApplication::setApplicationName(QStringLiteral("test_form_ricerche"));
        QApplication::setQuitOnLastWindowClosed(false);
        archivio_ = comune_.percorso() / "archivio";
        SenzaAvanzamento nessuno;
        QVERIFY(crea_dimostrazione(archivio_, nessuno));
    }

    void primo_avvio() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        QCOMPARE(f.form.windowTitle(), QStringLiteral("Sortimetra Plus - Ricerche Statistiche"));
        QCOMPARE(f.schede->count(), 5);
        QCOMPARE(f.schede->currentIndex(), 0);
        QCOMPARE(f.premuto(), 0);
        QCOMPARE(f.righe(), 39);
        QCOMPARE(f.griglia->model()->columnCount(), 2);
        QCOMPARE(f.corrente(), QStringLiteral("Ritardo e frequenza dei 90 numeri"));
        QVERIFY(f.gruppo(0)->hasFocus());
        QVERIFY(f.testo("lblFrase").startsWith(QStringLiteral("Per ogni numero")));
        // Nothing but the default file: bringing a list back is no choice of the user.
        QVERIFY(c.ric_ini().starts_with(
            "[TipoRic]\r\nindex=0\r\n[NomeRIC]\r\n0=Ritardo e frequenza dei 90 numeri\r\n"));
        QCOMPARE(QString::fromStdString(c.memoria().leggi_memoria("nome", "1")),
                 QStringLiteral("Ambata capogioco"));
        QCOMPARE(leggi_skin(c.sessione.percorso_skin()), std::optional<int>{1});
        QAbstractItemModelTester controllo{f.griglia->model()};
    }

    void gruppi_e_tasti_data() {
        QTest::addColumn<int>("tasto");
        QTest::addColumn<bool>("tastierino");
        for (int i = 1; i <= 6; ++i) {
            QTest::addRow("%d", i) << i << false;
            QTest::addRow("tastierino %d", i) << i << true;
        }
    }
    void gruppi_e_tasti() {
        QFETCH(int, tasto);
        QFETCH(bool, tastierino);
        Cartella c{archivio_};
        Finestra f{c.sessione};
        if (tasto == 1) QTest::mouseClick(f.gruppo(2), Qt::LeftButton);
        const int righe[] = {39, 37, 10, 5, 11, 22};
        QTest::keyClick(&f.form, static_cast<Qt::Key>(Qt::Key_0 + tasto),
                        tastierino ? Qt::KeypadModifier : Qt::NoModifier);
        QCOMPARE(f.premuto(), tasto - 1);
        QCOMPARE(f.righe(), righe[tasto - 1]);
        QCOMPARE(c.memoria().leggi_memoria("tipo", ""), std::to_string(tasto - 1));
        // The two tints in turn, the pressed one in a third.
        for (int i = 0; i < 7; ++i) {
            const Skin& s = skin_in_uso();
            const QRgb attesa = i == tasto - 1 ? s.trovato : i % 2 == 0 ? s.tinta_a : s.tinta_b;
            QCOMPARE(f.cornice(i)->tinta(), QColor::fromRgb(attesa));
        }
    }

    void righe_predefinite_dei_gruppi() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        const char* attese[] = {"Ritardo e frequenza dei 90 numeri",
                                "Ambata capogioco",
                                "Ricerche su tutti i Terni",
                                "Grattacielo dei 90",
                                "Cinquine dei 90",
                                "Ricerche su Numeri Personali"};
        for (int i = 5; i >= 0; --i) {
            QTest::mouseClick(f.gruppo(i), Qt::LeftButton);
            QCOMPARE(f.corrente(), QString::fromUtf8(attese[i]));
        }
    }

    void riga_e_scorrimento_ricordati() {
        Cartella c{archivio_};
        {
            Finestra f{c.sessione};
            QTest::keyClick(&f.form, Qt::Key_2);
            f.clic_riga(30);
            QCOMPARE(f.corrente(), QStringLiteral("Lunghette ritardate/frequenti per Ambo e Terno"));
            const int prima = f.griglia->verticalScrollBar()->value();
            QVERIFY(prima > 0);
            QCOMPARE(c.memoria().leggi_memoria("nome", "1"),
                     "Lunghette ritardate/frequenti per Ambo e Terno");
            QCOMPARE(c.memoria().leggi_memoria("nome", "1t"), std::to_string(prima));
        }
        Sessione nuova{c.sessione.percorso_programma};
        const auto prima = c.ric_ini();
        Finestra f{nuova};
        QCOMPARE(f.premuto(), 1);
        QVERIFY(f.gruppo(1)->hasFocus());
        QCOMPARE(f.corrente(), QStringLiteral("Lunghette ritardate/frequenti per Ambo e Terno"));
        QCOMPARE(std::to_string(f.griglia->verticalScrollBar()->value()),
                 c.memoria().leggi_memoria("nome", "1t"));
        QCOMPARE(QString::fromStdString(c.ric_ini()), QString::fromStdString(prima));
    }

    void frecce_scrivono_a_ogni_passo() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        f.griglia->setFocus();
        for (int i = 1; i <= 3; ++i) {
            QTest::keyClick(f.griglia, Qt::Key_Down);
            QCOMPARE(QString::fromStdString(c.memoria().leggi_memoria("nome", "0")), f.riga(i));
        }
        QCOMPARE(f.testo("lblNome"), f.riga(3));
        QTest::keyClick(f.griglia, Qt::Key_End);
        QCOMPARE(f.corrente(), QStringLiteral("Sestine somma 273"));
        QTest::keyClick(f.griglia, Qt::Key_Home);
        // Typing goes to the first name that begins so.
        QTest::keyClicks(f.griglia, QStringLiteral("sett"));
        QCOMPARE(f.corrente(), QStringLiteral("Settine Renard"));
    }

    void nome_sconosciuto_resta_sulla_prima_riga() {
        Cartella c{archivio_};
        c.scrivi("ric.ini",
                 "[TipoRic]\r\nindex=4\r\n[NomeRIC]\r\n4=Una ricerca di un'altra versione\r\n4t=9999\r\n");
        Finestra f{c.sessione};
        QCOMPARE(f.premuto(), 4);
        QCOMPARE(f.corrente(), QStringLiteral("Cinquine dei 90"));
    }

    void memoria_ostile_data() {
        QTest::addColumn<QByteArray>("testo");
        QTest::newRow("vuota") << QByteArray{};
        QTest::newRow("indice lontano") << QByteArray{"[TipoRic]\nindex=99999999999999999999\n"};
        QTest::newRow("indice negativo") << QByteArray{"[TipoRic]\nindex=-3\n"};
        QTest::newRow("parole") << QByteArray{"[TipoRic]\nindex=tre\n[NomeRIC]\n0t=-99999999999999999\n"};
        QTest::newRow("byte") << QByteArray(5000, '\xFF');
        QTest::newRow("NUL") << QByteArray(5000, '\0');
    }
    void memoria_ostile() {
        QFETCH(QByteArray, testo);
        Cartella c{archivio_};
        c.scrivi("ric.ini", testo.toStdString());
        Finestra f{c.sessione};
        QCOMPARE(f.premuto(), 0);
        QCOMPARE(f.corrente(), QStringLiteral("Ritardo e frequenza dei 90 numeri"));
    }

    void indici_6_e_7() {
        Cartella c{archivio_};
        c.scrivi("ric.ini", "[TipoRic]\r\nindex=6\r\n");
        {
            Finestra f{c.sessione};
            QCOMPARE(f.schede->currentIndex(), 1);
            QCOMPARE(f.righe(), 7);
        }
        c.scrivi("ric.ini", "[TipoRic]\r\nindex=7\r\n");
        Sessione nuova{c.sessione.percorso_programma};
        Finestra f{nuova};
        QCOMPARE(f.schede->currentIndex(), 0);
        QCOMPARE(f.righe(), 39);
    }

    void memoria_cancellata_rinasce_intera() {
        Cartella c{archivio_};
        {
            const Finestra f{c.sessione};
        }
        const auto intera = c.ric_ini();
        fs::remove(c.sessione.percorso_programma / "ric.ini");
        const Finestra f{c.sessione};
        QCOMPARE(c.ric_ini(), intera);
    }

    void schede() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        auto* frame1 = f.form.findChild<QWidget*>(QStringLiteral("Frame1"));
        auto* frame2 = f.form.findChild<QWidget*>(QStringLiteral("Frame2"));
        QVERIFY(frame1->isVisible() && !frame2->isVisible());
        const int righe[] = {39, 7, 5, 6, 3};
        const char* indici[] = {"0", "6", "7", "7", "7"};
        for (int i = 4; i >= 0; --i) {
            QTest::mouseClick(f.schede, Qt::LeftButton, {}, f.schede->tabRect(i).center());
            QCOMPARE(f.schede->currentIndex(), i);
            QCOMPARE(f.righe(), righe[i]);
            QCOMPARE(c.memoria().leggi_memoria("tipo", ""), std::string{indici[i]});
            QCOMPARE(frame1->isVisible(), i == 0);
            QCOMPARE(frame2->isVisible(), i != 0);
            if (i != 0) QCOMPARE(f.testo("lblFrame2"), f.schede->tabText(i));
            QCOMPARE(c.sessione.scheda_corrente, i + 1);
        }
        // Each tab remembers its own row.
        QTest::keyClick(&f.form, Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(f.schede->currentIndex(), 1);
        f.clic_riga(4);
        QTest::keyClick(&f.form, Qt::Key_PageDown, Qt::ControlModifier);
        f.clic_riga(2);
        QTest::keyClick(&f.form, Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(f.corrente(), f.riga(4));
        QCOMPARE(c.memoria().leggi_memoria("nome", "6"),
                 "Ricerche su tutti gli ambi (nella sestina SuperEnalotto)");
        QCOMPARE(c.memoria().leggi_memoria("nome", "7"),
                 "Frequenza e ritardo dei 90 numeri per posizione (10 e lotto)");
        // A digit leads back to the groups.
        QTest::keyClick(&f.form, Qt::Key_3);
        QCOMPARE(f.schede->currentIndex(), 0);
        QCOMPARE(f.righe(), 10);
        QCOMPARE(c.memoria().leggi_memoria("tipo", ""), "2");
    }

    void conferma_apre_e_torna() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        QVERIFY(f.conferma->isEnabled());
        QTest::mouseClick(f.conferma, Qt::LeftButton);
        QCOMPARE(chiavi_aperte, QStringList{QStringLiteral("ritardo e frequenza dei 90 numeri")});
        QCOMPARE(ultimo_visto, 4655);
        QVERIFY(!f.form.isVisible());
        QWidget* schermo = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible()) schermo = w;
        QVERIFY(schermo != nullptr);
        schermo->close();
        QTRY_VERIFY(f.form.isVisible());
        QCOMPARE(f.corrente(), QStringLiteral("Ritardo e frequenza dei 90 numeri"));

        // The same instance serves the next search.
        f.clic_riga(0, true);
        QCOMPARE(chiavi_aperte.size(), 2);
        QVERIFY(schermo->isVisible());
        schermo->close();
        QTRY_VERIFY(f.form.isVisible());

        // Enter in the list, and with the focus on a group.
        QTest::keyClick(f.griglia, Qt::Key_Return);
        schermo->close();
        QTRY_VERIFY(f.form.isVisible());
        QTest::keyClick(f.gruppo(0), Qt::Key_Enter);
        schermo->close();
        QTRY_VERIFY(f.form.isVisible());
        QCOMPARE(chiavi_aperte.size(), 4);
        // Alt+C.
        QTest::keyClick(&f.form, Qt::Key_C, Qt::AltModifier);
        QTRY_COMPARE(chiavi_aperte.size(), 5);
    }

    void torna_alla_scheda_da_cui_e_partita() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        f.cerca->setText(QStringLiteral("primo estratto"));
        QCOMPARE(f.riga(0), QStringLiteral("Ritardo e frequenza del primo estratto su ruota"));
        QTest::keyClick(f.cerca, Qt::Key_Return);
        QCOMPARE(chiavi_aperte,
                 QStringList{QStringLiteral("ritardo e frequenza del primo estratto su ruota")});
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible()) w->close();
        QTRY_VERIFY(f.form.isVisible());
        QCOMPARE(f.cerca->text(), QStringLiteral("primo estratto"));
    }

    void ricerche_non_ancora_costruite() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        int provate = 0;
        for (int i = 0; i < f.righe(); ++i) {
            const auto indice = f.griglia->model()->index(i, 0);
            const Ricerca* r = trova_ricerca(indice.data().toString().toStdString());
            QVERIFY(r != nullptr);
            const bool si =
                r->pronta() && (schermo_di(*r) == Schermo::stat || schermo_di(*r) == Schermo::segnalimite);
            QCOMPARE(indice.data(ModelloElenco::kDisponibile).toBool(), si);
            QCOMPARE(indice.data(Qt::ToolTipRole).toString(),
                     si ? QString{} : QStringLiteral("Non ancora disponibile in questa versione"));
            if (si) continue;
            ++provate;
            f.clic_riga(i, true);
            QTest::keyClick(f.griglia, Qt::Key_Return);
            QVERIFY(!f.conferma->isEnabled());
            QCOMPARE(f.conferma->toolTip(), QStringLiteral("Non ancora disponibile in questa versione"));
            QVERIFY(f.form.isVisible());
        }
        QVERIFY(provate > 0);
        QVERIFY(chiavi_aperte.isEmpty());
    }

    void filtro() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        QTest::keyClick(&f.form, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(f.cerca->hasFocus());
        const auto prima = c.ric_ini();
        // Digits belong to the field while it has the focus.
        QTest::keyClicks(f.cerca, QStringLiteral("90 PIU"));
        QCOMPARE(f.cerca->text(), QStringLiteral("90 PIU"));
        QCOMPARE(f.premuto(), -1);
        f.cerca->clear();
        QTest::keyClicks(f.cerca, QStringLiteral("win for life"));
        QCOMPARE(f.righe(), 6);
        for (int i = 0; i < f.righe(); ++i)
            QCOMPARE(f.griglia->model()->index(i, 1).data().toString(), QStringLiteral("Win for Life"));
        QTest::keyClick(f.cerca, Qt::Key_Down);
        QCOMPARE(f.griglia->currentIndex().row(), 1);
        QVERIFY(f.cerca->hasFocus());
        f.cerca->clear();
        QTest::keyClicks(f.cerca, QStringLiteral("zzz"));
        QCOMPARE(f.righe(), 0);
        QVERIFY(!f.conferma->isEnabled());
        QTest::keyClick(f.cerca, Qt::Key_Return);
        QTest::keyClick(f.cerca, Qt::Key_Escape);
        QCOMPARE(f.righe(), 39);
        QCOMPARE(f.premuto(), 0);
        QVERIFY(f.griglia->hasFocus());
        QCOMPARE(f.corrente(), QStringLiteral("Ritardo e frequenza dei 90 numeri"));
        QCOMPARE(c.ric_ini(), prima);
        // A group ends the search for words.
        QTest::keyClicks(f.cerca, QStringLiteral("cinquine"));
        QTest::mouseClick(f.gruppo(2), Qt::LeftButton);
        QCOMPARE(f.righe(), 10);
        QVERIFY(f.cerca->text().isEmpty());
    }

    void frecce_fra_i_gruppi() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        QTest::keyClick(f.gruppo(0), Qt::Key_Down);
        QVERIFY(f.gruppo(1)->hasFocus());
        QCOMPARE(f.premuto(), 1);
        QTest::keyClick(f.gruppo(1), Qt::Key_Right);
        QVERIFY(f.griglia->hasFocus());
        QTest::keyClick(f.griglia, Qt::Key_Left);
        QVERIFY(f.gruppo(1)->hasFocus());
        QTest::keyClick(f.gruppo(1), Qt::Key_Up);
        QTest::keyClick(f.gruppo(0), Qt::Key_Up);
        QCOMPARE(f.premuto(), 0);
    }

    void segnalimite() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        f.clic_riga(5, true);
        auto* frame = f.form.findChild<QFrame*>(QStringLiteral("FrameSegnalimite"));
        QVERIFY(frame != nullptr && frame->isVisible());
        QVERIFY(!f.schede->isVisible() && !f.griglia->isVisible());
        QCOMPARE(frame->findChild<QLabel*>(QStringLiteral("lblSegnalimite_88"))->text(),
                 QStringLiteral("04 - 82 - 79"));
        int celle = 0;
        for (const auto* l : frame->findChildren<QLabel*>())
            if (l->objectName().startsWith(QStringLiteral("lblNumero_"))) ++celle;
        QCOMPARE(celle, 90);
        QCOMPARE(frame->findChild<QPushButton*>(QStringLiteral("cmdstampa"))->text(),
                 QStringLiteral("Stampa"));
        QTest::mouseClick(frame->findChild<QPushButton*>(QStringLiteral("cmdstampa")), Qt::LeftButton);
        auto* anteprima = f.form.findChild<FormAnteprima*>();
        QVERIFY(anteprima != nullptr && anteprima->isVisible());
        QCOMPARE(anteprima->pagine(), (PagineScelte{1, 1}));
        anteprima->close();
        QVERIFY(f.form.isVisible() && frame->isVisible());
        QTest::keyClick(&f.form, Qt::Key_2);  // the groups are out of sight
        QCOMPARE(f.premuto(), 0);
        QTest::mouseClick(frame->findChild<QPushButton*>(QStringLiteral("Command3")), Qt::LeftButton);
        QVERIFY(!frame->isVisible() && f.schede->isVisible() && f.griglia->isVisible());
        QTest::keyClick(f.griglia, Qt::Key_Return);
        QVERIFY(frame->isVisible());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(f.griglia->isVisible());
    }

    void tabella_ritardi_senza_il_suo_schermo() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        // Here the program has no screen for it: the button is there, cannot be pressed and says why.
        QVERIFY(!f.gruppo(6)->isEnabled());
        QCOMPARE(f.gruppo(6)->toolTip(), QStringLiteral("Non ancora disponibile in questa versione"));
        QTest::mouseClick(f.gruppo(6), Qt::LeftButton);
        QCOMPARE(c.memoria().leggi_memoria("tipo", ""), "0");
    }

    void tabella_ritardi_apre_subito() {
        static constexpr RigaSchermo kConRitardi[] = {{Schermo::tab_pos2, crea_finto, attiva_finto}};
        Cartella c{archivio_};
        Finestra f{c.sessione, true, kConRitardi};
        QTest::keyClick(&f.form, Qt::Key_4);
        QTest::mouseClick(f.gruppo(6), Qt::LeftButton);
        QCOMPARE(chiavi_aperte, QStringList{QStringLiteral("tabellone migliori ritardi")});
        QCOMPARE(c.memoria().leggi_memoria("tipo", ""), "6");
        QVERIFY(!f.form.isVisible());
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible()) w->close();
        QTRY_VERIFY(f.form.isVisible());
        // The list behind it is still that of its group.
        QCOMPARE(f.premuto(), 3);
        QCOMPARE(f.righe(), 5);
    }

    void stato_dell_archivio() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        QVERIFY(f.form.archivio_aperto());
        QVERIFY(f.testo("lblStato").startsWith(QStringLiteral("drawit.db · ultimo concorso 4655 del ")));
        auto* simulato = f.form.findChild<QLabel*>(QStringLiteral("lblSimulato"));
        QVERIFY(simulato->isVisible());
        QCOMPARE(simulato->text(), QStringLiteral("Archivio simulato"));
        QVERIFY(!f.form.findChild<QWidget*>(QStringLiteral("FrameArchivio"))->isVisible());
    }

    void dice_quante_estrazioni_mancano() {
        // Draws of years ago, not simulated: by the calendar many have come since.
        Cartella c;
        std::string storia;
        for (const char* r : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"})
            storia += std::string{"1997/12/03\t"} + r + "\t1\t2\t3\t4\t5\n";
        c.scrivi("storia.txt", storia);
        SenzaAvanzamento subito;
        QVERIFY(importa_archivio(c.sessione.percorso_archivio(),
                                 {.lotto = c.sessione.percorso_programma / "storia.txt", .tutto = true},
                                 subito));
        Finestra f{c.sessione};
        const QRegularExpression atteso{QStringLiteral(
            "^drawit\\.db · ultimo concorso 1 del 03/12/1997: mancano circa [0-9]\\.[0-9]{3} estrazioni$")};
        QVERIFY2(atteso.match(f.testo("lblStato")).hasMatch(), qPrintable(f.testo("lblStato")));
        // Simulated draws are not to be continued.
        Cartella simulata{archivio_};
        Finestra g{simulata.sessione};
        QVERIFY(!g.testo("lblStato").contains(QStringLiteral("manca")));
    }

    void aggiorna_archivio_e_lo_rilegge() {
        Cartella c;
        std::string storia;
        std::string nuova;
        for (const char* r : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"}) {
            storia += std::string{"1997/12/03\t"} + r + "\t1\t2\t3\t4\t5\n";
            nuova += std::string{"1997/12/06\t"} + r + "\t6\t7\t8\t9\t10\n";
        }
        c.scrivi("storia.txt", storia);
        c.scrivi("nuova.txt", nuova);
        SenzaAvanzamento subito;
        QVERIFY(importa_archivio(c.sessione.percorso_archivio(),
                                 {.lotto = c.sessione.percorso_programma / "storia.txt", .tutto = true},
                                 subito));
        Finestra f{c.sessione};
        QTest::keyClick(&f.form, Qt::Key_U, Qt::ControlModifier);
        Form_Aggiorna* aggiorna = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* a = qobject_cast<Form_Aggiorna*>(w); a != nullptr && a->isVisible()) aggiorna = a;
        QVERIFY(aggiorna != nullptr);
        // The catalogue stays beside it; a file may be dropped on either.
        QVERIFY(f.form.isVisible());
        QMimeData dati;
        dati.setUrls({QUrl::fromLocalFile(
            QString::fromStdString((c.sessione.percorso_programma / "nuova.txt").string()))});
        QDragEnterEvent entra{QPoint{5, 5}, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier};
        QApplication::sendEvent(&f.form, &entra);
        QVERIFY(entra.isAccepted());
        QDropEvent cade{QPointF{5, 5}, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier};
        QApplication::sendEvent(&f.form, &cade);
        QCOMPARE(aggiorna->findChild<QLabel*>("lblTrovato")->text(), QStringLiteral("1 estrazione nuova"));
        QTest::mouseClick(aggiorna->findChild<QPushButton*>("cmdApplica"), Qt::LeftButton);
        QVERIFY(f.letto());
        QVERIFY(f.testo("lblStato").contains(QStringLiteral("ultimo concorso 2 del 06/12/1997")));
        QCOMPARE(aggiorna->findChild<QLabel*>("lblUltime")->text(),
                 QStringLiteral("Lotto: concorso 2 del 06/12/1997"));
        aggiorna->close();
        f.conferma->click();
        QCOMPARE(ultimo_visto, 2);
    }

    void si_mostra_prima_di_aprire_l_archivio() {
        Cartella c{archivio_};
        Finestra f{c.sessione, false};
        QVERIFY(f.form.isVisible());
        QVERIFY(!f.form.archivio_aperto());
        QTRY_VERIFY(f.form.archivio_aperto());
    }

    void mentre_legge_la_finestra_vive() {
        Cartella c{archivio_};
        form_ricerche form{c.sessione, kFinti};
        const Lenta lenta{form};
        chiavi_aperte.clear();
        form.show();
        QTRY_VERIFY(form.legge_archivio());
        auto* stato = form.findChild<QLabel*>(QStringLiteral("lblStato"));
        QCOMPARE(stato->text(), QStringLiteral("Leggo l'archivio…"));
        // It goes on taking clicks and keys, and says for what it waits.
        QTest::keyClick(&form, Qt::Key_4);
        QCOMPARE(c.memoria().leggi_memoria("tipo", ""), "3");
        auto* frame = form.findChild<QWidget*>(QStringLiteral("FrameArchivio"));
        QTRY_VERIFY(frame->isVisible());
        QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblArchivioTitolo"))->text(), stato->text());
        QTest::keyClick(&form, Qt::Key_1);
        form.apri(*trova_ricerca("ritardo e frequenza dei 90 numeri"));
        QVERIFY(chiavi_aperte.isEmpty());
        QVERIFY(stato->text().contains(QStringLiteral("«Ritardo e frequenza dei 90 numeri»"),
                                       Qt::CaseInsensitive));
        QVERIFY(frame->isVisible());
        // Another choice takes its place; it opens when there is something to open it on.
        form.apri(*trova_ricerca("decine"));
        lenta.leggi();
        QTRY_VERIFY(form.archivio_aperto());
        QCOMPARE(chiavi_aperte, QStringList{QStringLiteral("decine")});
        QCOMPARE(ultimo_visto, 4655);
        QVERIFY(!form.isVisible());
        QVERIFY(stato->text().startsWith(QStringLiteral("drawit.db · ")));
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible()) w->close();
    }

    void chi_rinuncia_non_si_trova_una_finestra() {
        Cartella c{archivio_};
        form_ricerche form{c.sessione, kFinti};
        const Lenta lenta{form};
        chiavi_aperte.clear();
        form.show();
        form.apri(*trova_ricerca("decine"));
        QTest::keyClick(&form, Qt::Key_Escape);
        QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblStato"))->text(),
                 QStringLiteral("Leggo l'archivio…"));
        lenta.leggi();
        QTRY_VERIFY(form.archivio_aperto());
        QVERIFY(chiavi_aperte.isEmpty());
    }

    void mentre_legge_si_cambia_cartella() {
        Cartella c;
        Cartella altra{archivio_};
        form_ricerche form{c.sessione, kFinti};
        const Lenta lenta{form};
        form.show();
        QTRY_VERIFY(form.legge_archivio());
        // The folder that was being read has no archive: that is not said, it is no longer wanted.
        MessaggiDiProva detti;
        form.usa_cartella(altra.sessione.percorso_programma);
        lenta.leggi();
        QTRY_VERIFY(form.archivio_aperto());
        QVERIFY(detti.detti.isEmpty());
        QCOMPARE(c.sessione.percorso_programma, altra.sessione.percorso_programma);
        QVERIFY(!form.findChild<QWidget*>(QStringLiteral("FrameArchivio"))->isVisible());
    }

    void si_chiude_mentre_legge() {
        Cartella c{archivio_};
        const auto form = std::make_unique<form_ricerche>(c.sessione, kFinti);
        const Lenta lenta{*form};
        form->show();
        QTRY_VERIFY(form->legge_archivio());
        QSignalSpy fine{form.get(), &form_ricerche::terminata};
        form->close();
        QCOMPARE(fine.count(), 1);
        lenta.leggi();
        QTRY_VERIFY(!form->legge_archivio());
        QVERIFY(!form->archivio_aperto());
    }

    void cartella_senza_permesso() {
        if (geteuid() == 0) QSKIP("everything is permitted to root");
        Cartella c{archivio_};
        const auto dove = c.sessione.percorso_archivio();
        fs::permissions(dove, fs::perms::none);
        Finestra f{c.sessione};
        fs::permissions(dove, fs::perms::owner_all);
        QCOMPARE(f.testo("lblArchivioTesto"),
                 QString::fromStdString(dove.string()) +
                     QStringLiteral(": la cartella dell'archivio non si può leggere: permesso negato"));
        // Nothing is offered that would be written there.
        QVERIFY(!f.form.findChild<QWidget*>(QStringLiteral("cmdDimostrazione"))->isVisible());
        QVERIFY(f.form.findChild<QWidget*>(QStringLiteral("cmdRiprova"))->isVisible());
    }

    void senza_archivio_lo_crea() {
        Cartella c;
        Finestra f{c.sessione};
        auto* frame = f.form.findChild<QWidget*>(QStringLiteral("FrameArchivio"));
        QVERIFY(frame->isVisible());
        QVERIFY(f.testo("lblArchivioTesto").contains(QStringLiteral("drawit.mdb")));
        QVERIFY(!f.conferma->isEnabled());
        QCOMPARE(f.testo("lblImpedimento"), QStringLiteral("Serve un archivio delle estrazioni"));
        f.clic_riga(0, true);
        QVERIFY(chiavi_aperte.isEmpty());
        f.clic_riga(5);  // needs none
        QVERIFY(f.conferma->isEnabled());
        QTest::mouseClick(f.form.findChild<QPushButton*>(QStringLiteral("cmdDimostrazione")), Qt::LeftButton);
        QVERIFY(f.letto());
        QVERIFY(f.form.archivio_aperto());
        QVERIFY(!frame->isVisible());
        QVERIFY(f.form.findChild<QLabel*>(QStringLiteral("lblSimulato"))->isVisible());
    }

    void senza_archivio_sceglie_una_cartella() {
        Cartella c;
        Cartella altra{archivio_};
        altra.scrivi("ric.ini", "[TipoRic]\r\nindex=3\r\n");
        altra.scrivi("skin/skn.dat", "2");
        Finestra f{c.sessione};
        QSignalSpy scelta{&f.form, &form_ricerche::cartella_scelta};
        f.form.chiedi_cartella = [] { return QString{}; };
        auto* cartella = f.form.findChild<QPushButton*>(QStringLiteral("cmdCartella"));
        QTest::mouseClick(cartella, Qt::LeftButton);
        QVERIFY(!f.form.archivio_aperto());
        QCOMPARE(scelta.count(), 0);
        // Whoever points at the archive itself means the folder above.
        f.form.chiedi_cartella = [&] {
            return QString::fromStdString(altra.sessione.percorso_archivio().string());
        };
        QTest::mouseClick(cartella, Qt::LeftButton);
        QVERIFY(f.letto());
        QVERIFY(f.form.archivio_aperto());
        QCOMPARE(c.sessione.percorso_programma, altra.sessione.percorso_programma);
        QCOMPARE(scelta.count(), 1);
        QCOMPARE(f.premuto(), 3);
        QCOMPARE(indice_skin_in_uso(), 2);
        QTest::keyClick(&f.form, Qt::Key_5);
        QCOMPARE(altra.memoria().leggi_memoria("tipo", ""), "4");
    }

    void una_cartella_sbagliata_lascia_tutto_com_era() {
        Cartella c{archivio_};
        Cartella vuota;
        Cartella guasta;
        guasta.scrivi("archivio/drawit.db", "non sono un archivio");
        const auto contenuto = [](const Cartella& dove) {
            QStringList nomi;
            for (const auto& e : fs::recursive_directory_iterator{dove.sessione.percorso_programma})
                nomi << QString::fromStdString(e.path().string());
            nomi.sort();
            return nomi;
        };
        Finestra f{c.sessione};
        QTest::keyClick(&f.form, Qt::Key_4);
        QSignalSpy scelta{&f.form, &form_ricerche::cartella_scelta};
        const QString stato = f.testo("lblStato");
        const int skin = indice_skin_in_uso();
        for (const Cartella* sbagliata : {&vuota, &guasta}) {
            const QStringList prima = contenuto(*sbagliata);
            MessaggiDiProva detti;
            f.form.chiedi_cartella = [&] {
                return QString::fromStdString(sbagliata->sessione.percorso_programma.string());
            };
            QTest::mouseClick(f.form.findChild<QPushButton*>(QStringLiteral("cmdCambia")), Qt::LeftButton);
            QVERIFY(f.letto());
            // It says which folder, what was looked for there, and what would be right.
            QCOMPARE(detti.detti.size(), 1);
            QVERIFY(detti.detti[0].testo.contains(
                QString::fromStdString(sbagliata->sessione.percorso_archivio().string())));
            QVERIFY(detti.detti[0].testo.contains(QStringLiteral("drawit.db")));
            QVERIFY(detti.detti[0].testo.contains(QStringLiteral("Scegli una cartella")));
            QVERIFY(f.form.archivio_aperto());
            QVERIFY(!f.form.findChild<QWidget*>(QStringLiteral("FrameArchivio"))->isVisible());
            QCOMPARE(f.testo("lblStato"), stato);
            QCOMPARE(f.premuto(), 3);
            QCOMPARE(indice_skin_in_uso(), skin);
            QCOMPARE(contenuto(*sbagliata), prima);
        }
        QCOMPARE(scelta.count(), 0);
        // What is remembered still goes into the folder in use.
        QTest::keyClick(&f.form, Qt::Key_2);
        QCOMPARE(c.memoria().leggi_memoria("tipo", ""), "1");
    }

    void un_altra_istanza_che_scrive_non_ferma_le_frecce() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        const std::string prima = c.ric_ini();
        const auto prendi = [](const fs::path& dove) {
            const int fd = ::open(dove.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            if (::flock(fd, LOCK_EX) != 0) qFatal("no lock");
            return fd;
        };
        int fd = prendi(c.sessione.percorso_programma);
        const int skin = prendi(c.sessione.percorso_skin());
        f.griglia->setFocus();
        for (int i = 0; i < 20; ++i) QTest::keyClick(f.griglia, Qt::Key_Down);
        f.form.carica_skin(3);
        QCOMPARE(indice_skin_in_uso(), 3);
        const QString dove = f.corrente();
        // Twenty rows went by, and nothing was written under the other one's lock: nobody has waited for it.
        QCOMPARE(f.griglia->currentIndex().row(), 20);
        QCOMPARE(c.ric_ini(), prima);
        QVERIFY(leggi_skin(c.sessione.percorso_skin()) != std::optional<int>{3});
        // The list is left and come back to: what is kept counts.
        QTest::keyClick(&f.form, Qt::Key_2);
        QTest::keyClick(&f.form, Qt::Key_1);
        QCOMPARE(f.corrente(), dove);
        ::close(fd);
        ::close(skin);
        QTRY_COMPARE(c.memoria().leggi_memoria("nome", "0"), dove.toStdString());
        QTRY_COMPARE(leggi_skin(c.sessione.percorso_skin()), std::optional<int>{3});
    }

    void cio_che_resta_da_scrivere_si_scrive_alla_fine() {
        Cartella c{archivio_};
        QString dove;
        {
            Finestra f{c.sessione};
            const int fd = ::open(c.sessione.percorso_programma.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            QCOMPARE(::flock(fd, LOCK_EX), 0);
            QTest::keyClick(f.griglia, Qt::Key_Down);
            dove = f.corrente();
            ::close(fd);
        }
        QCOMPARE(c.memoria().leggi_memoria("nome", "0"), dove.toStdString());
    }

    void archivio_guasto_si_dice() {
        Cartella c;
        c.scrivi("archivio/drawit.db", "non sono un archivio");
        Finestra f{c.sessione};
        QVERIFY(!f.form.archivio_aperto());
        QVERIFY(f.form.findChild<QWidget*>(QStringLiteral("FrameArchivio"))->isVisible());
        QVERIFY(f.testo("lblArchivioTesto").contains(QStringLiteral("drawit.db")));
        // The demonstration never takes the place of a file that is there.
        QVERIFY(!f.form.findChild<QWidget*>(QStringLiteral("cmdDimostrazione"))->isVisible());
        fs::remove_all(c.sessione.percorso_archivio());
        fs::copy(archivio_, c.sessione.percorso_archivio());
        QTest::mouseClick(f.form.findChild<QPushButton*>(QStringLiteral("cmdRiprova")), Qt::LeftButton);
        QVERIFY(f.letto());
        QVERIFY(f.form.archivio_aperto());
    }

    void skin() {
        Cartella c{archivio_};
        c.scrivi("skin/skn.dat", "12");
        Finestra f{c.sessione};
        QCOMPARE(leggi_skin(c.sessione.percorso_skin()), std::optional<int>{12});
        for (int i = 1; i <= kNumeroSkin; ++i) {
            f.form.carica_skin(i);
            QCOMPARE(leggi_skin(c.sessione.percorso_skin()), std::optional<int>{i});
            QCOMPARE(indice_skin_in_uso(), i);
        }
    }

    void chiudi_termina() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        QSignalSpy fine{&f.form, &form_ricerche::terminata};
        auto* chiudi = f.form.findChild<QPushButton*>(QStringLiteral("Command1"));
        QCOMPARE(chiudi->text(), QStringLiteral("C&hiudi"));
        QTest::mouseClick(chiudi, Qt::LeftButton);
        QCOMPARE(fine.count(), 1);
        QVERIFY(!f.form.isVisible());
    }

    void ultima_estrazione() {
        const auto archivio =
            prove::da_testi("7 BA 1 2 3 4 5\n8 BA 90 12 33 4 5\n8 TO 7 8 9 10 11\n8 NZ 21 22 23 24 25\n",
                            "8 1 2 3 4 5 6 77 88\n", "3 08:00 1 2 3 4 5 6 7 8 9 10\n");
        UltimaEstrazione u;
        u.mostra(&archivio, Gioco::lotto);
        QCOMPARE(u.testo(), QStringLiteral("Concorso 8 del 08/01/2000\nBari 90 12 33 04 05\n"
                                           "Torino 07 08 09 10 11\nNazionale 21 22 23 24 25"));
        QCOMPARE(u.accessibleDescription(), u.testo());
        u.mostra(&archivio, Gioco::superenalotto);
        QCOMPARE(
            u.testo(),
            QStringLiteral("Concorso 8 del 08/01/2000\nSestina 01 02 03 04 05 06\nJolly 77\nSuperStar 88"));
        u.mostra(&archivio, Gioco::win_for_life);
        QVERIFY(u.testo().endsWith(QStringLiteral("Ore 08:00 01 02 03 04 05\n06 07 08 09 10")));
        for (const Gioco gioco : {Gioco::lotto, Gioco::superenalotto, Gioco::win_for_life}) {
            const ArchivioEstrazioni vuoto;
            u.mostra(&vuoto, gioco);
            QVERIFY(u.testo().isEmpty());
            QCOMPARE(u.sizeHint().height(), 0);
        }
        u.mostra(&archivio, Gioco::sistemi);
        QVERIFY(u.testo().isEmpty());
        u.mostra(nullptr, Gioco::lotto);
        QVERIFY(u.testo().isEmpty());
    }

    void piu_grande_di_due_punti() {
        const QFont prima = QApplication::font();
        QFont grande = prima;
        grande.setPointSizeF(QFontInfo{prima}.pointSizeF() + 2);
        QApplication::setFont(grande);
        for (const bool con_archivio : {true, false}) {
            Cartella c{con_archivio ? archivio_ : fs::path{}};
            Finestra f{c.sessione};
            const QSize minima = f.form.minimumSizeHint();
            QVERIFY2(minima.width() <= 1024 && minima.height() <= 640,
                     qPrintable(QStringLiteral("%1x%2").arg(minima.width()).arg(minima.height())));
            f.clic_riga(5, true);
            const QSize tabella = f.form.minimumSizeHint();
            QVERIFY2(tabella.width() <= 1024 && tabella.height() <= 640,
                     qPrintable(QStringLiteral("%1x%2").arg(tabella.width()).arg(tabella.height())));
        }
        QApplication::setFont(prima);
    }

    void misure_e_nomi() {
        Cartella c{archivio_};
        Finestra f{c.sessione};
        QCOMPARE(f.form.size(), QSize(1180, 720).boundedTo(f.form.screen()->availableSize()));
        const QSize minima = f.form.minimumSizeHint();
        QVERIFY2(minima.width() <= 1024 && minima.height() <= 640,
                 qPrintable(QStringLiteral("%1x%2").arg(minima.width()).arg(minima.height())));
        for (auto* w : f.form.findChildren<QWidget*>()) {
            if (w->focusPolicy() == Qt::NoFocus || !w->isVisible()) continue;
            auto* pulsante = qobject_cast<QAbstractButton*>(w);
            QVERIFY2(
                !w->accessibleName().isEmpty() || (pulsante != nullptr && !pulsante->text().isEmpty()) ||
                    qobject_cast<QLabel*>(w) != nullptr,
                qPrintable(w->objectName() + QLatin1Char{' '} + QLatin1String{w->metaObject()->className()}));
        }
    }
};

QTEST_MAIN(TestFormRicerche)
#include "test_form_ricerche.moc"

#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "stores/apertura.h"
#include "stores/form_aggiorna.h"
#include "stores/form_estrazione.h"
#include "stores/importa.h"
#include "stores/porta_trascinati.h"
#include "stores/quadro_estrazione.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>
#include <fstream>
#include <memory>

using namespace sortimetra;

namespace {

/// Eleven wheels of one day, each with the same five numbers.
std::string giornata(const char* data, int primo) {
    std::string t;
    for (const char* r : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"}) {
        t += std::string{data} + "\t" + r;
        for (int i = 0; i < 5; ++i) t += "\t" + std::to_string(primo + i);
        t += "\n";
    }
    return t;
}

const std::string kStoria = giornata("1997/12/03", 1) + giornata("1997/12/06", 11);
const std::string kNuove = giornata("1997/12/10", 21) + giornata("1997/12/13", 31);

}  // namespace

class TestFormAggiorna final : public QObject {
    Q_OBJECT

    std::unique_ptr<prove::CartellaProva> cartella_;
    Sessione sessione_;
    std::optional<ArchivioEstrazioni> archivio_;
    std::unique_ptr<Form_Aggiorna> form_;

    template <class T>
    T* controllo(const char* nome) const {
        T* c = form_->findChild<T*>(QString::fromLatin1(nome));
        if (c == nullptr) QTest::qFail(nome, __FILE__, __LINE__);
        return c;
    }
    void clic(const char* nome) const { QTest::mouseClick(controllo<QPushButton>(nome), Qt::LeftButton); }
    QString testo(const char* nome) const { return controllo<QLabel>(nome)->text(); }
    QString file(const char* nome, const std::string& byte) const {
        const auto f = cartella_->percorso() / nome;
        std::ofstream{f, std::ios::binary} << byte;
        return QString::fromStdString(f.string());
    }
    void apri() {
        auto aperto = apri_archivio(sessione_.percorso_archivio());
        archivio_.reset();
        if (aperto) archivio_ = std::move(*aperto);
        form_->prepara(archivio_ ? &*archivio_ : nullptr, *leggi_data_italiana("20/12/1997"));
    }
    QStringList righe() const {
        QStringList r;
        const auto* m = form_->findChild<GrigliaRisultati*>()->modello();
        for (int i = 0; i < m->rowCount(); ++i) {
            QStringList celle;
            for (int c = 0; c < m->columnCount(); ++c) celle << m->testo(i, c);
            r << celle.join(QLatin1Char{'|'});
        }
        return r;
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        cartella_ = std::make_unique<prove::CartellaProva>();
        // The addresses are the user's settings: not those of who runs the tests.
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((cartella_->percorso() / "config").string()));
        sessione_ = Sessione{.percorso_programma = cartella_->percorso() / "programma"};
        SenzaAvanzamento subito;
        const auto storia = file("storia.txt", kStoria);
        QVERIFY(importa_archivio(sessione_.percorso_archivio(),
                                 {.lotto = storia.toStdString(), .tutto = true}, subito));
        form_ = std::make_unique<Form_Aggiorna>(sessione_);
        connect(form_.get(), &Form_Aggiorna::archivio_cambiato, this, &TestFormAggiorna::apri);
        apri();
        QVERIFY(archivio_.has_value());
        form_->show();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    void cleanup() { form_.reset(); }

    void mostra_poi_aggiunge_poi_annulla() {
        QCOMPARE(testo("lblUltime"), QStringLiteral("Lotto: concorso 2 del 06/12/1997"));
        QVERIFY(!controllo<QPushButton>("cmdApplica")->isEnabled());
        form_->chiedi_file = [this] { return QStringList{file("nuove.txt", kNuove)}; };
        clic("cmdFile");
        QCOMPARE(testo("lblTrovato"), QStringLiteral("2 estrazioni nuove"));
        QCOMPARE(righe(), (QStringList{QStringLiteral("Lotto|4|13/12/1997|nuova"),
                                       QStringLiteral("Lotto|3|10/12/1997|nuova")}));
        // Nothing is written before it is asked for.
        QCOMPARE(archivio_->ultimo_concorso(), 2);
        QCOMPARE(apri_archivio(sessione_.percorso_archivio())->ultimo_concorso(), 2);
        QCOMPARE(controllo<QPushButton>("cmdApplica")->text(), QStringLiteral("&Aggiungi 2 estrazioni"));
        QSignalSpy cambiato{form_.get(), &Form_Aggiorna::archivio_cambiato};
        clic("cmdApplica");
        QCOMPARE(cambiato.count(), 1);
        QCOMPARE(archivio_->ultimo_concorso(), 4);
        QCOMPARE(testo("lblUltime"), QStringLiteral("Lotto: concorso 4 del 13/12/1997"));
        QVERIFY(!controllo<QPushButton>("cmdApplica")->isEnabled());

        MessaggiDiProva messaggi;
        messaggi.risposta = true;
        clic("cmdAnnullaUltimo");
        QCOMPARE(archivio_->ultimo_concorso(), 2);
    }

    void niente_di_nuovo() {
        form_->accogli_file({file("storia2.txt", kStoria)});
        QCOMPARE(testo("lblTrovato"), QStringLiteral("Niente di nuovo"));
        QVERIFY(!controllo<QPushButton>("cmdApplica")->isEnabled());
        QCOMPARE(righe(), QStringList{});
    }

    void dagli_appunti_con_i_tasti() {
        QApplication::clipboard()->setText(QString::fromStdString(kNuove));
        QTest::keyClick(form_.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(testo("lblTrovato"), QStringLiteral("2 estrazioni nuove"));
        QApplication::clipboard()->setText(QStringLiteral("la lista della spesa"));
        clic("cmdIncolla");
        QCOMPARE(testo("lblTrovato"), QStringLiteral("Nuove estrazioni"));
        QVERIFY2(testo("lblStato").contains(QStringLiteral("appunti")), qPrintable(testo("lblStato")));
        QVERIFY(!controllo<QPushButton>("cmdApplica")->isEnabled());
    }

    void le_diverse_si_elencano_e_si_sostituiscono_soltanto_se_chiesto() {
        form_->accogli_file({file("diverse.txt", giornata("1997/12/06", 41))});
        QCOMPARE(righe().size(), 11);
        QCOMPARE(righe().front(),
                 QStringLiteral("Lotto|2|06/12/1997|BA: in archivio 11.12.13.14.15, arrivata 41.42.43.44.45; "
                                "resta com'è"));
        QVERIFY(!controllo<QPushButton>("cmdApplica")->isEnabled());
        auto* sostituisci = controllo<QCheckBox>("CheckSostituisci");
        QVERIFY(sostituisci->isVisible());
        QTest::mouseClick(sostituisci, Qt::LeftButton, {}, QPoint{8, sostituisci->height() / 2});
        QVERIFY(righe().front().endsWith(QStringLiteral("si sostituisce")));
        clic("cmdApplica");
        QCOMPARE(int{archivio_->lotto().numeri.back()[0]}, 41);
    }

    void un_estrazione_scritta_a_mano_prende_la_stessa_strada() {
        clic("cmdMano");
        QWidget* mano = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->objectName() == QLatin1String{"Form_Estrazione"} && w->isVisible()) mano = w;
        QVERIFY(mano != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(mano));
        for (auto* c : mano->findChildren<CasellaEstratto*>())
            if (c->objectName().startsWith(QLatin1String{"txtLotto"}))
                c->setText(QString::number(c->objectName().section('_', 1).toInt() % 5 + 51));
        QTest::mouseClick(mano->findChild<QPushButton*>("cmdAggiungi"), Qt::LeftButton);
        QCOMPARE(testo("lblTrovato"), QStringLiteral("1 estrazione nuova"));
        QCOMPARE(righe(), QStringList{QStringLiteral("Lotto|3|10/12/1997|nuova")});
        clic("cmdApplica");
        QCOMPARE(int{archivio_->lotto().numeri.back()[4]}, 55);
    }

    void si_scarica_dagli_indirizzi_che_restano() {
        QStringList chiesti;
        form_->scarica = [&](const std::string& indirizzo,
                             Avanzamento&) -> std::expected<Arrivo, ErroreArchivio> {
            chiesti << QString::fromStdString(indirizzo);
            return Arrivo{.nome = indirizzo, .byte = kNuove};
        };
        auto* scarica = controllo<QPushButton>("cmdScarica");
        QVERIFY(!scarica->isEnabled());
        controllo<QPlainTextEdit>("txtIndirizzi")
            ->setPlainText(QStringLiteral("https://esempio.invalid/lotto.txt\n\n"));
        clic("cmdScarica");
        QCOMPARE(chiesti, QStringList{QStringLiteral("https://esempio.invalid/lotto.txt")});
        QCOMPARE(testo("lblTrovato"), QStringLiteral("2 estrazioni nuove"));
        form_->scarica = [](const std::string&, Avanzamento&) -> std::expected<Arrivo, ErroreArchivio> {
            return std::unexpected{
                ErroreArchivio{"https://esempio.invalid/lotto.txt", "il server non risponde"}};
        };
        clic("cmdScarica");
        QVERIFY(testo("lblStato").contains(QStringLiteral("il server non risponde")));
        // The next window knows them.
        Form_Aggiorna altra{sessione_};
        altra.prepara(nullptr, Data{});
        QCOMPARE(altra.findChild<QPlainTextEdit*>("txtIndirizzi")->toPlainText(),
                 QStringLiteral("https://esempio.invalid/lotto.txt"));
        // They are taken away as they came, without a download.
        altra.findChild<QPlainTextEdit*>("txtIndirizzi")->clear();
        altra.show();
        altra.close();
        altra.prepara(nullptr, Data{});
        QCOMPARE(altra.findChild<QPlainTextEdit*>("txtIndirizzi")->toPlainText(), QString{});
    }

    void si_lascia_cadere_un_file_su_qualsiasi_finestra() {
        PortaTrascinati porta;
        qApp->installEventFilter(&porta);
        QStringList portati;
        connect(&porta, &PortaTrascinati::portato, this,
                [&](const QMimeData& d) { portati << d.urls().value(0).fileName(); });
        QWidget finestra;
        finestra.show();
        QVERIFY(finestra.acceptDrops());
        QMimeData dati;
        dati.setUrls({QUrl::fromLocalFile(file("nuove.txt", kNuove))});
        QDragEnterEvent entra{QPoint{5, 5}, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier};
        QApplication::sendEvent(&finestra, &entra);
        QVERIFY(entra.isAccepted());
        QDropEvent cade{QPointF{5, 5}, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier};
        QApplication::sendEvent(&finestra, &cade);
        QCOMPARE(portati, QStringList{QStringLiteral("nuove.txt")});
        // A picture is nothing to us.
        QMimeData immagine;
        immagine.setImageData(QImage{4, 4, QImage::Format_RGB32});
        QDragEnterEvent altra{QPoint{5, 5}, Qt::CopyAction, &immagine, Qt::LeftButton, Qt::NoModifier};
        altra.setAccepted(false);
        QApplication::sendEvent(&finestra, &altra);
        QVERIFY(!altra.isAccepted());
    }
};

QTEST_MAIN(TestFormAggiorna)
#include "test_form_aggiorna.moc"

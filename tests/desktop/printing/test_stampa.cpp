#include "catalogue/form_ricerche_schermi.h"
#include "catalogue/nomi.h"
#include "catalogue/ricerche.h"
#include "printing/form_anteprima.h"
#include "printing/frm_stampa_fcpb.h"
#include "screens/casella_cifre.h"
#include "screens/finestra_ricerca.h"
#include "screens/messaggi.h"
#include "screens/stampanti.h"
#include "statistics/parametri.h"
#include "stores/dimostrazione.h"
#include "support/archivi.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <algorithm>
#include <functional>
#include <memory>
#include <set>

using namespace sortimetra;

namespace {

/// Pages of a PDF file, 0 if it is none.
int pagine_pdf(const QString& file) {
    QFile f{file};
    if (!f.open(QIODevice::ReadOnly)) return 0;
    const QByteArray byte = f.readAll();
    static const QRegularExpression conto{QStringLiteral("/Type /Pages.*?/Count (\\d+)"),
                                          QRegularExpression::DotMatchesEverythingOption};
    const auto trovato = conto.match(QString::fromLatin1(byte));
    return trovato.hasMatch() ? trovato.captured(1).toInt() : 0;
}

Rapporto cinque_pagine() {
    return {.titolo = "Rapporto di prova", .pagine = 5, .disegna = [](EasyPrint& p, int n) {
                stampa_piede(p, n, 5);
            }};
}

template <class T>
T* trova(QWidget* in, const char* nome) {
    T* t = in->findChild<T*>(QLatin1String{nome});
    if (t == nullptr) qFatal("manca %s", nome);
    return t;
}

void scrivi(QLineEdit* casella, const QString& testo) {
    casella->setFocus();
    casella->selectAll();
    QTest::keyClick(casella, Qt::Key_Delete);
    QTest::keyClicks(casella, testo);
}

/// The names of the controls that Tab reaches one after the other, from `primo` on until it comes round. Each
/// must have a name for who does not see it.
QStringList giro_di_tab(QWidget* in, const char* primo) {
    auto* inizio = trova<QWidget>(in, primo);
    inizio->setFocus();
    QStringList nomi;
    do {
        QWidget* w = QApplication::focusWidget();
        nomi << w->objectName();
        if (QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name).isEmpty()) nomi.last() += "?";
        QTest::keyClick(w, Qt::Key_Tab);
    } while (QApplication::focusWidget() != inizio && nomi.size() < 50);
    return nomi;
}

void premi(QWidget* in, const char* nome) {
    QTest::mouseClick(trova<QPushButton>(in, nome), Qt::LeftButton);
}

}  // namespace

class TestStampa : public QObject {
    Q_OBJECT

  private:
    QTemporaryDir cartella_;

    /// Opens the preview of a picture, runs `azione` in it and closes it. Returns what `StampaFCPB` did.
    bool in_anteprima(frmStampaFCPB& form, const OggettoStampa& oggetto, QRectF cornice,
                      const std::function<void()>& azione) {
        QTimer::singleShot(0, &form, [&] {
            if (azione) azione();
            form.reject();
        });
        return form.StampaFCPB(oggetto, cornice.x(), cornice.y(), cornice.width(), cornice.height());
    }

    static QImage quadro(int w = 200, int h = 100) {
        QImage immagine{w, h, QImage::Format_RGB32};
        immagine.fill(Qt::red);
        return immagine;
    }

  private slots:
    // ---- Frame_opz and the preview ----

    void le_pagine_prendono_solo_cifre() {
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        auto* da = trova<QLineEdit>(&form, "txtpag_0");
        QCOMPARE(da->text(), "1");
        QCOMPARE(trova<QLineEdit>(&form, "txtpag_1")->text(), "5");
        QCOMPARE(trova<QLabel>(&form, "lbltotale")->text(), "Totale Pagine: 5");
        QVERIFY(form.minimumSizeHint().height() <= 640);
        QCOMPARE(trova<QPushButton>(&form, "cmdopzioni_0")->text().remove('&'), "Annulla");
        QCOMPARE(trova<QPushButton>(&form, "cmdopzioni_1")->text().remove('&'), "Stampa");
        scrivi(da, "a-3.b");
        QCOMPARE(da->text(), "3");
    }

    void lasciando_la_casella_si_resta_nel_rapporto() {
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        auto* da = trova<QLineEdit>(&form, "txtpag_0");
        auto* a = trova<QLineEdit>(&form, "txtpag_1");
        const auto lascia = [](QLineEdit* casella) {
            QFocusEvent via{QEvent::FocusOut, Qt::TabFocusReason};
            QApplication::sendEvent(casella, &via);
        };
        scrivi(da, "99");
        QCOMPARE(da->text(), "99");
        lascia(da);
        QCOMPARE(da->text(), "5");
        scrivi(da, "0");
        lascia(da);
        QCOMPARE(da->text(), "1");
        scrivi(a, "");
        lascia(a);
        QCOMPARE(a->text(), "1");
        scrivi(a, "99999999999999999999");
        lascia(a);
        QCOMPARE(a->text(), "5");
    }

    void stampa_le_pagine_scelte() {
        StampantiDiProva prova{cartella_.path()};
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        scrivi(trova<QLineEdit>(&form, "txtpag_0"), "2");
        scrivi(trova<QLineEdit>(&form, "txtpag_1"), "4");
        premi(&form, "cmdopzioni_1");
        QCOMPARE(prova.documenti.size(), 1);
        QCOMPARE(prova.aperte, QStringList{"Prova"});
        QCOMPARE(pagine_pdf(prova.documenti[0]), 3);
        QVERIFY(!form.isVisible());
        QCOMPARE(form.result(), int{QDialog::Accepted});
    }

    void la_prima_pagina_non_puo_seguire_l_ultima() {
        StampantiDiProva prova{cartella_.path()};
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        scrivi(trova<QLineEdit>(&form, "txtpag_0"), "4");
        scrivi(trova<QLineEdit>(&form, "txtpag_1"), "2");
        premi(&form, "cmdopzioni_1");
        QVERIFY(prova.documenti.isEmpty());
        QVERIFY(form.isVisible());
        QVERIFY(!trova<QLabel>(&form, "lblesito")->text().isEmpty());
    }

    void annulla_non_stampa() {
        StampantiDiProva prova{cartella_.path()};
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        premi(&form, "cmdopzioni_0");
        QVERIFY(!form.isVisible());
        QVERIFY(prova.documenti.isEmpty());
        // Nor does giving up in the print dialog, which keeps the preview.
        prova.accetta = false;
        form.show();
        premi(&form, "cmdopzioni_1");
        QVERIFY(form.isVisible());
        QVERIFY(prova.documenti.isEmpty());
    }

    void senza_stampante_lo_dice() {
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        prova.si_apre = false;
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        premi(&form, "cmdopzioni_1");
        QCOMPARE(detti.detti.size(), 1);
        QVERIFY(form.isVisible());
    }

    void una_stampante_guasta_mostra_una_volta_ogni_errore() {
        StampantiDiProva prova{cartella_.path()};
        prova.prossimo = cartella_.filePath("manca/x.pdf");
        MessaggiDiProva detti;
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        premi(&form, "cmdopzioni_1");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].titolo, "EasyPrint");
        QVERIFY(detti.detti[0].testo.startsWith("Errore nella routine di stampa\r\nErrore numero: 482\r\n"));
        QVERIFY(form.isVisible());
    }

    void salva_come_pdf() {
        MessaggiDiProva detti;
        detti.file = cartella_.filePath("scelto");
        Rapporto rapporto = cinque_pagine();
        rapporto.titolo = "Frequenza/Ritardo: 90";
        FormAnteprima form{std::move(rapporto), nullptr};
        form.show();
        scrivi(trova<QLineEdit>(&form, "txtpag_0"), "3");
        premi(&form, "cmdPdf");
        QVERIFY2(detti.proposto.endsWith("/Frequenza-Ritardo- 90.pdf"), qPrintable(detti.proposto));
        QCOMPARE(pagine_pdf(cartella_.filePath("scelto.pdf")), 3);
        QVERIFY(trova<QLabel>(&form, "lblesito")->text().contains("scelto.pdf"));
        QVERIFY(detti.detti.isEmpty());
        // The dialog asked about "scelto"; the file that is there already is another.
        scrivi(trova<QLineEdit>(&form, "txtpag_0"), "5");
        premi(&form, "cmdPdf");
        QCOMPARE(detti.detti.size(), 1);
        QVERIFY(detti.detti[0].testo.contains("scelto.pdf esiste già."));
        QCOMPARE(pagine_pdf(cartella_.filePath("scelto.pdf")), 3);
        detti.risposta = true;
        premi(&form, "cmdPdf");
        QCOMPARE(pagine_pdf(cartella_.filePath("scelto.pdf")), 1);
        detti.detti.clear();
        detti.file = cartella_.filePath("manca/x.pdf");
        premi(&form, "cmdPdf");
        QCOMPARE(detti.detti.size(), 1);
        detti.file.reset();
        premi(&form, "cmdPdf");
        QCOMPARE(detti.detti.size(), 1);
    }

    void il_file_si_offre_nella_cartella_dell_ultimo() {
        MessaggiDiProva detti;
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        QVERIFY(QDir{cartella_.path()}.mkdir("tolta"));
        detti.file = cartella_.filePath("tolta/a.pdf");
        premi(&form, "cmdPdf");
        detti.file.reset();
        premi(&form, "cmdPdf");
        QCOMPARE(detti.proposto, cartella_.filePath("tolta/Rapporto di prova.pdf"));
        // A folder that is no more gives way to the user's own.
        QVERIFY(QDir{cartella_.filePath("tolta")}.removeRecursively());
        premi(&form, "cmdPdf");
        QCOMPARE(detti.proposto, QDir::home().filePath("Rapporto di prova.pdf"));
    }

    void le_pagine_si_sfogliano() {
        QList<int> disegnate;
        Rapporto rapporto = cinque_pagine();
        rapporto.disegna = [&](EasyPrint& p, int n) {
            disegnate.append(n);
            stampa_piede(p, n, 5);
        };
        FormAnteprima form{std::move(rapporto), nullptr};
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QTRY_VERIFY(disegnate.contains(1));
        QVERIFY(!disegnate.contains(2));  // only what is in sight is drawn
        QVERIFY(!trova<QPushButton>(&form, "cmdIndietro")->isEnabled());
        premi(&form, "cmdAvanti");
        QCOMPARE(form.pagina(), 2);
        QTRY_VERIFY(disegnate.contains(2));
        QTest::keyClick(&form, Qt::Key_End);
        QCOMPARE(form.pagina(), 5);
        QVERIFY(!trova<QPushButton>(&form, "cmdAvanti")->isEnabled());
        QTest::keyClick(&form, Qt::Key_PageUp);
        QCOMPARE(form.pagina(), 4);
        auto* casella = trova<QLineEdit>(&form, "txtPagina");
        scrivi(casella, "77");
        QTest::keyClick(casella, Qt::Key_Tab);
        QCOMPARE(form.pagina(), 5);
        QCOMPARE(casella->text(), "5");
    }

    void tab_gira_come_l_occhio() {
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.vai(3);
        QCOMPARE(giro_di_tab(&form, "cmdPrima"),
                 (QStringList{"cmdPrima", "cmdIndietro", "cmdAvanti", "cmdUltima", "txtPagina",
                              "cmbGrandezza", "txtpag_0", "txtpag_1", "cmdopzioni_0", "cmdopzioni_1",
                              "cmdStampaPagina", "cmdPdf", "scorriAnteprima"}));
    }

    void il_rapporto_di_una_ricerca() {
        const auto archivio = prove::da_testo("1 BA 1 2 3 4 5\n2 BA 6 7 8 9 90\n");
        Risposta risposta = prove::rispondi(prove::domanda("ritardo e frequenza dei 90 numeri"), archivio);
        QWidget finestra;
        finestra.show();
        const QPointer<FormAnteprima> form = stampa_risultato(&finestra, risposta);
        risposta.risultato.reset();  // the window keeps what it prints
        QVERIFY(form->isVisible());
        QVERIFY(form->windowTitle().contains("Ritardo e Frequenza dei 90 numeri"));
        StampantiDiProva prova{cartella_.path()};
        premi(form, "cmdopzioni_1");
        QCOMPARE(pagine_pdf(prova.documenti.value(0)), 1);
        QTRY_VERIFY(form.isNull());
    }

    /// Every search of the catalogue, from its screen: open, start, print.
    void ogni_schermo_stampa_data() {
        QTest::addColumn<QByteArray>("chiave");
        for (const Ricerca& r : ricerche()) {
            if (!r.pronta() || schermo_di(r) == Schermo::segnalimite || schermo_di(r) == Schermo::nessuno)
                continue;
            // Those that want numbers, groups or systems of the user's have tests of their own.
            const bool capi = r.ammette(kOpzCapogioco) || r.ammette(kOpzAmboCapo);
            if (!capi &&
                !prove::rispondi(domanda_intatta(r), dimostrazione(), prove::cartella_dati()).prodotta())
                continue;
            const QByteArray chiave{r.chiave().data(), static_cast<qsizetype>(r.chiave().size())};
            QTest::newRow(chiave.constData()) << chiave;
        }
    }
    static const ArchivioEstrazioni& dimostrazione() {
        static const ArchivioEstrazioni archivio =
            ArchivioEstrazioni::componi(archivio_dimostrativo()).value();
        return archivio;
    }
    void ogni_schermo_stampa() {
        QFETCH(QByteArray, chiave);
        const ArchivioEstrazioni& archivio = dimostrazione();
        const Ricerca& ricerca = *trova_ricerca(chiave.toStdString());
        QFile::copy(QStringLiteral(SORTIMETRA_RADICE "/data/n90ridd.rid"), cartella_.filePath("n90ridd.rid"));
        Sessione sessione;
        sessione.percorso_programma = cartella_.path().toStdString();
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        const auto riga =
            std::find_if(schermi_del_programma().begin(), schermi_del_programma().end(),
                         [&](const RigaSchermo& s) { return s.schermo == schermo_di(ricerca); });
        QVERIFY(riga != schermi_del_programma().end());
        const std::unique_ptr<QWidget> schermo{riga->crea(sessione)};
        riga->attiva(*schermo, ricerca, archivio);
        schermo->show();
        QVERIFY(QTest::qWaitForWindowActive(schermo.get()));
        // A capo for the searches that want one, two for those that want two.
        int capo = 12;
        for (const char* nome : {"txtcapogioco", "txtAmboCapo_0", "txtAmboCapo_1"})
            if (auto* casella = schermo->findChild<QLineEdit*>(QLatin1String{nome});
                casella != nullptr && casella->isVisible())
                scrivi(casella, QString::number(capo++));
        // The boards ask for the concorso first; the best delays have their start on the page that follows.
        static_cast<FinestraRicerca*>(schermo.get())->avvia();
        if (schermo_di(ricerca) == Schermo::tab_pos2) premi(schermo.get(), "Command8");
        QVERIFY2(detti.detti.isEmpty(), qPrintable(detti.detti.value(0).testo));
        QTest::keyClick(schermo.get(), Qt::Key_P, Qt::ControlModifier);
        auto* anteprima = trova<FormAnteprima>(schermo.get(), "form_anteprima");
        QVERIFY(anteprima->isVisible());
        premi(anteprima, "cmdopzioni_1");
        QCOMPARE(prova.documenti.size(), 1);
        QVERIFY(pagine_pdf(prova.documenti[0]) >= 1);
        QVERIFY(detti.detti.isEmpty());
    }

    // ---- frmStampaFCPB ----

    void argomenti_sbagliati() {
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        frmStampaFCPB form;
        const auto rifiuta = [&](const OggettoStampa& oggetto, double w, double h, const QString& testo) {
            detti.detti.clear();
            QVERIFY(!form.StampaFCPB(oggetto, 10, 10, w, h, "griglia"));
            QCOMPARE(detti.detti.size(), 1);
            QCOMPARE(detti.detti[0].titolo, " Errore in frmStampaFCPB/StampaFCPB");
            QCOMPARE(detti.detti[0].testo, testo);
        };
        const QString errato = "L' oggetto da stampare\ne' di tipo errato.";
        rifiuta({}, 10, 10, errato);
        rifiuta(QImage{}, 10, 10, errato);
        rifiuta(static_cast<QObject*>(nullptr), 10, 10, errato);
        QObject senza_finestra;
        rifiuta(&senza_finestra, 10, 10,
                "L' oggetto da stampare\n\"griglia\"\nnon espone la proprieta' hWnd.");
        const QString parametri =
            "Parametri errati.\nLa larghezza e l' altezza di stampa\nrichieste devono essere > 0.";
        rifiuta(quadro(), 0, 10, parametri);
        rifiuta(quadro(), 10, -1, parametri);
        rifiuta(quadro(), qQNaN(), 10, parametri);
        QVERIFY(prova.aperte.isEmpty());
    }

    void senza_stampante_predefinita() {
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        frmStampaFCPB form;
        prova.nome.clear();
        QVERIFY(!form.StampaFCPB(quadro(), 0, 0, 10, 10));
        QCOMPARE(detti.detti[0].titolo, " Errore in frmStampaFCPB/GetDefPrinterName");
        QCOMPARE(detti.detti[0].testo, "Stampante di default non specificata.");
        prova.nome = "Laser,winspool,LPT1:";
        prova.si_apre = false;
        QVERIFY(!form.StampaFCPB(quadro(), 0, 0, 10, 10));
        QCOMPARE(prova.aperte, QStringList{"Laser"});
        QCOMPARE(detti.detti[1].titolo, " Errore in frmStampaFCPB/OpenDocPrinter");
        QCOMPARE(detti.detti[1].testo, "Non posso accedere alla stampante richiesta.");
        prova.si_apre = true;
        prova.immagini = false;
        QVERIFY(!form.StampaFCPB(quadro(), 0, 0, 10, 10));
        QCOMPARE(detti.detti[2].testo, "This device does not support DIB's");
        QCOMPARE(detti.detti[3].testo, "L' operazione di stampa viene interrotta.");
    }

    void un_controllo_senza_grandezza_non_si_copia() {
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        frmStampaFCPB form;
        QWidget vuoto;
        vuoto.resize(0, 0);
        QVERIFY(!form.StampaFCPB(&vuoto, 0, 0, 10, 10));
        QCOMPARE(detti.detti[0].testo, "Errore di Copia");
    }

    void un_immagine_vuota_non_si_mostra() {
        MessaggiDiProva detti;
        frmStampaFCPB form;
        QVERIFY(!form.Preview({}));
        QVERIFY(!form.Zoom({}));
        QCOMPARE(detti.detti.size(), 2);
        QCOMPARE(detti.detti[0].titolo, " Errore in Preview");
        QCOMPARE(detti.detti[1].titolo, " Errore in Zoom");
        QVERIFY(form.Preview(quadro()) && form.Zoom(quadro()));
        QCOMPARE(detti.detti.size(), 2);
        const QPixmap zoom = trova<QLabel>(&form, "picZoom")->pixmap();
        QVERIFY(!zoom.isNull() && zoom.width() <= 240 && zoom.height() <= 240);
        QVERIFY(!trova<QLabel>(&form, "shpBordo")->pixmap().isNull());
    }

    void il_foglio_ha_nome_e_misure() {
        StampantiDiProva prova{cartella_.path()};
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {10, 20, 100, 50}, [&] {
            QCOMPARE(form.testo_foglio(), " Foglio: A4,  Portrait");
            QCOMPARE(trova<QLabel>(&form, "lblFgW")->text(), "210");
            QCOMPARE(trova<QLabel>(&form, "lblFgH")->text(), "297");
            QCOMPARE(trova<QLineEdit>(&form, "txtPrX")->text(), "10");
            QCOMPARE(trova<QLineEdit>(&form, "txtPrY")->text(), "20");
            QCOMPARE(trova<QLineEdit>(&form, "txtPrW")->text(), "100");
            QCOMPARE(trova<QLineEdit>(&form, "txtPrH")->text(), "50");
            QCOMPARE(trova<QPushButton>(&form, "cmdChiudi")->text(), "Chiudi ");
            QVERIFY(form.windowTitle().startsWith("Anteprima di stampa "));
            QVERIFY(!trova<QLabel>(&form, "lblFuoriFoglio")->isVisible());
            const QPixmap zoom = trova<QLabel>(&form, "picZoom")->pixmap();
            QVERIFY(zoom.width() > 60 && zoom.width() <= 240 && zoom.height() <= 240);
            QVERIFY(form.minimumSizeHint().height() <= 640);
        }));
        prova.orientamento = QPageLayout::Landscape;
        frmStampaFCPB coricato;
        QVERIFY(in_anteprima(coricato, quadro(), {0, 0, 250, 50}, [&] {
            QCOMPARE(coricato.testo_foglio(), " Foglio: A4,  Landscape");
            QCOMPARE(trova<QLabel>(&coricato, "lblFgW")->text(), "297");
        }));
    }

    /// The picture of a page, far larger than the screen: `picZoom` shows a part of it, larger than beside
    /// it.
    void lo_zoom_ingrandisce_il_punto_guardato() {
        StampantiDiProva prova{cartella_.path()};
        frmStampaFCPB form;
        QImage grande{2000, 3000, QImage::Format_RGB32};
        grande.fill(Qt::red);
        for (int y = 1500; y < 3000; ++y)
            for (int x = 0; x < 2000; ++x) grande.setPixel(x, y, qRgb(0, 0, 255));
        QVERIFY(in_anteprima(form, grande, {10, 10, 180, 270}, [&] {
            const auto* zoom = trova<QLabel>(&form, "picZoom");
            auto* bordo = trova<QLabel>(&form, "shpBordo");
            const double mostrata = bordo->width() / 2000.0;
            const auto ingrandita = [&] {
                const QPixmap p = zoom->pixmap();
                return p.width() / p.devicePixelRatio() / form.parte_ingrandita().width();
            };
            QVERIFY(ingrandita() > 2.5 * mostrata);
            QVERIFY(form.parte_ingrandita().contains(QPoint(0, 0)));
            QCOMPARE(zoom->pixmap().toImage().pixelColor(5, 5), QColor{Qt::red});
            // It follows the pointer over the picture,
            QTest::mouseMove(bordo, {bordo->width() / 2, bordo->height() - 3});
            QVERIFY(form.parte_ingrandita().contains(QPoint(1000, 2990)));
            QCOMPARE(zoom->pixmap().toImage().pixelColor(5, 5), QColor{Qt::blue});
            // and Ctrl with the arrows.
            auto* preview = trova<PicPreview>(&form, "picPreview");
            for (int i = 0; i < 30; ++i) QTest::keyClick(preview, Qt::Key_Up, Qt::ControlModifier);
            QCOMPARE(form.parte_ingrandita().top(), 0);
            QCOMPARE(form.cornice().topLeft(), QPointF(10, 10));
        }));
    }

    void troppo_grande_chiede_prima() {
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        detti.risposta_a_tre = Assenso::annulla;
        frmStampaFCPB form;
        QVERIFY(!form.StampaFCPB(quadro(), 10, 10, 400, 200));
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].titolo, " Errore di Scala");
        QCOMPARE(detti.detti[0].testo,
                 "Le dimensioni di stampa richieste\nsono superiori a quelle del foglio\n"
                 "della stampante selezionata.\nPosso cambiare la scala?");
        QVERIFY(prova.documenti.isEmpty());

        detti.risposta_a_tre = Assenso::si;
        QVERIFY(in_anteprima(form, quadro(), {10, 10, 400, 200}, [&] {
            QCOMPARE(form.cornice(), QRectF(10, 10, 200, 100));
            QVERIFY(!trova<QLabel>(&form, "lblFuoriFoglio")->isVisible());
        }));
        // Both sides overflow: the narrower of the two ratios, so that the proportions stay.
        QVERIFY(in_anteprima(form, quadro(), {10, 197, 400, 200},
                             [&] { QCOMPARE(form.cornice().size(), QSizeF(200, 100)); }));
        QVERIFY(in_anteprima(form, quadro(), {500, 10, 100, 50},
                             [&] { QCOMPARE(form.cornice(), QRectF(0, 10, 100, 50)); }));
        detti.risposta_a_tre = Assenso::no;
        QVERIFY(in_anteprima(form, quadro(), {10, 10, 400, 200}, [&] {
            QCOMPARE(form.cornice(), QRectF(10, 10, 400, 200));
            QVERIFY(trova<QLabel>(&form, "lblFuoriFoglio")->isVisible());
            QCOMPARE(trova<QLabel>(&form, "lblFuoriFoglio")->text(), "Stampa fuori foglio");
        }));
    }

    void spostare_scalare_centrare() {
        StampantiDiProva prova{cartella_.path()};
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {10, 20, 100, 50}, [&] {
            auto* x = trova<QLineEdit>(&form, "txtPrX");
            auto* w = trova<QLineEdit>(&form, "txtPrW");
            auto* h = trova<QLineEdit>(&form, "txtPrH");
            auto* centro = trova<QCheckBox>(&form, "chkCentro");
            auto* proporzioni = trova<QCheckBox>(&form, "chkProporzioni");
            const auto conferma = [](QLineEdit* c) { QTest::keyClick(c, Qt::Key_Return); };
            scrivi(x, "12,5");
            conferma(x);
            QCOMPARE(form.cornice().x(), 12.5);
            scrivi(x, "150");
            conferma(x);
            QVERIFY(trova<QLabel>(&form, "lblFuoriFoglio")->isVisible());
            premi(&form, "cmdOrigine");
            QCOMPARE(form.cornice().topLeft(), QPointF(0, 0));
            QVERIFY(!trova<QLabel>(&form, "lblFuoriFoglio")->isVisible());
            QCOMPARE(x->text(), "0");
            // With proportions the other side follows.
            scrivi(w, "60");
            conferma(w);
            QCOMPARE(form.cornice().size(), QSizeF(60, 30));
            scrivi(h, "40");
            conferma(h);
            QCOMPARE(form.cornice().size(), QSizeF(80, 40));
            centro->click();
            QCOMPARE(form.cornice(), QRectF(65, 128.5, 80, 40));
            scrivi(w, "100");
            conferma(w);
            QCOMPARE(form.cornice(), QRectF(55, 123.5, 100, 50));  // stays in the middle
            premi(&form, "cmdMax");
            QCOMPARE(form.cornice().size(), QSizeF(210, 105));
            proporzioni->click();
            premi(&form, "cmdMax");
            QCOMPARE(form.cornice(), QRectF(0, 0, 210, 297));
            scrivi(w, "50");
            conferma(w);
            QCOMPARE(form.cornice().size(), QSizeF(50, 297));
            // A text that is no number changes nothing and gives way to the value.
            scrivi(w, "abc");
            conferma(w);
            QCOMPARE(w->text(), "50");
            scrivi(w, "-3");
            conferma(w);
            QCOMPARE(w->text(), "50");
        }));
        QVERIFY(prova.documenti.isEmpty());
    }

    void tab_gira_fra_i_valori() {
        StampantiDiProva prova{cartella_.path()};
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {0, 0, 100, 50}, [&] {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QCOMPARE(giro_di_tab(&form, "picPreview"),
                     (QStringList{"picPreview", "txtPrX", "txtPrY", "txtPrW", "txtPrH", "txtScala",
                                  "cmdScala", "txtNCopies", "chkProporzioni", "chkCentro", "cmdOrigine",
                                  "cmdMax", "cmdPdf", "cmdStampa", "cmdChiudi"}));
        }));
    }

    void la_scala_prende_la_virgola() {
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {0, 0, 100, 50}, [&] {
            auto* scala = trova<QLineEdit>(&form, "txtScala");
            const double naturale = 200 * 25.4 / form.logicalDpiX();
            scrivi(scala, "1,5");
            QTest::keyClick(scala, Qt::Key_Return);
            QVERIFY(qAbs(form.cornice().width() - naturale * 1.5) < 1e-6);
            QVERIFY(qAbs(form.cornice().height() - naturale * 0.75) < 1e-6);
            QCOMPARE(scala->text(), "1,5");
            scrivi(scala, "0.5");
            premi(&form, "cmdScala");
            QVERIFY(qAbs(form.cornice().width() - naturale * 0.5) < 1e-6);
            QVERIFY(detti.detti.isEmpty());
            scrivi(scala, "tanto");
            premi(&form, "cmdScala");
            QCOMPARE(detti.detti.size(), 1);
            QCOMPARE(detti.detti[0].titolo, " Errore in frmStampaFCPB/txtScala");
            QCOMPARE(scala->text(), "0,5");
        }));
    }

    void col_mouse_e_con_le_frecce() {
        StampantiDiProva prova{cartella_.path()};
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {10, 20, 100, 50}, [&] {
            auto* preview = trova<PicPreview>(&form, "picPreview");
            QTest::keyClick(preview, Qt::Key_Right);
            QTest::keyClick(preview, Qt::Key_Down, Qt::ShiftModifier);
            QCOMPARE(form.cornice().topLeft(), QPointF(11, 30));
            auto* bordo = trova<QLabel>(&form, "shpBordo");
            const QPoint prima = bordo->pos();
            QTest::mousePress(bordo, Qt::LeftButton, {}, {5, 5});
            QTest::mouseMove(bordo, {25, 45});
            QTest::mouseRelease(bordo, Qt::LeftButton, {}, {25, 45});
            QVERIFY(form.cornice().x() > 11);
            QVERIFY(form.cornice().y() > 30);
            QVERIFY((bordo->pos() - prima - QPoint(20, 40)).manhattanLength() <= 2);
        }));
    }

    void l_immagine_si_salva_come_pdf() {
        StampantiDiProva prova{cartella_.path()};
        prova.orientamento = QPageLayout::Landscape;
        MessaggiDiProva detti;
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {10, 10, 100, 50}, [&] {
            premi(&form, "cmdPdf");
            QVERIFY(detti.detti.isEmpty());  // no file chosen, nothing said
            detti.file = cartella_.filePath("immagine");
            premi(&form, "cmdPdf");
            QCOMPARE(pagine_pdf(cartella_.filePath("immagine.pdf")), 1);
            QVERIFY(detti.detti.value(0).testo.contains("immagine.pdf"));
            // The sheet lies, as in the preview: 842 by 595 points.
            QFile f{cartella_.filePath("immagine.pdf")};
            QVERIFY(f.open(QIODevice::ReadOnly));
            QVERIFY(f.readAll().contains("/MediaBox [0 0 842.0"));
            detti.file = cartella_.filePath("manca/x.pdf");
            premi(&form, "cmdPdf");
            QCOMPARE(detti.detti.size(), 2);
        }));
        QVERIFY(prova.documenti.isEmpty());
    }

    /// The best delays on the screen, calculated, to be printed.
    std::unique_ptr<QWidget> migliori_ritardi(Sessione& sessione, const ArchivioEstrazioni& archivio) {
        QFile::copy(QStringLiteral(SORTIMETRA_RADICE "/data/n90ridd.rid"), cartella_.filePath("n90ridd.rid"));
        sessione.percorso_programma = cartella_.path().toStdString();
        const auto riga = std::find_if(schermi_del_programma().begin(), schermi_del_programma().end(),
                                       [](const RigaSchermo& s) { return s.schermo == Schermo::tab_pos2; });
        std::unique_ptr<QWidget> schermo{riga->crea(sessione)};
        riga->attiva(*schermo, *trova_ricerca(nomi::kMiglioriRitardi.chiave), archivio);
        schermo->show();
        premi(schermo.get(), "cmdopzioni_1");
        premi(schermo.get(), "Command8");
        return schermo;
    }

    /// Who wants the page as a picture has it, on the sheet that the printer has.
    void i_migliori_ritardi_come_immagine_sul_foglio_della_stampante() {
        StampantiDiProva prova{cartella_.path()};
        MessaggiDiProva detti;
        Sessione sessione;
        const auto archivio = ArchivioEstrazioni::componi(archivio_dimostrativo()).value();
        const auto schermo = migliori_ritardi(sessione, archivio);
        for (const auto foglio : {QPageSize::A4, QPageSize::Letter, QPageSize::A5}) {
            prova.foglio = foglio;
            const QSizeF mm = QPageSize{foglio}.size(QPageSize::Millimeter);
            QRectF cornice;
            QSizeF mostrato;
            QTimer::singleShot(0, schermo.get(), [&] {
                auto* form = schermo->findChild<frmStampaFCPB*>();
                cornice = form->cornice();
                mostrato = form->foglio();
                form->reject();
            });
            premi(schermo.get(), "cmdImmagine_1");
            QVERIFY(qAbs(mostrato.width() - mm.width()) < 0.5 && qAbs(mostrato.height() - mm.height()) < 0.5);
            // Whole, between margins of 10 mm, one of its sides from one to the other.
            const QRectF dentro{10, 10, mostrato.width() - 20, mostrato.height() - 20};
            QVERIFY(dentro.adjusted(-0.01, -0.01, 0.01, 0.01).contains(cornice));
            QVERIFY(qAbs(cornice.width() - dentro.width()) < 0.01 ||
                    qAbs(cornice.height() - dentro.height()) < 0.01);
        }
        QVERIFY(detti.detti.isEmpty());  // nobody is asked about a scale
        prova.nome.clear();
        premi(schermo.get(), "cmdImmagine_1");
        QCOMPARE(detti.detti.value(0).testo, "Stampante di default non specificata.");
    }

    /// A sheet of another size is the picture's affair alone: reports are laid out for A4.
    void un_rapporto_resta_in_a4() {
        StampantiDiProva prova{cartella_.path()};
        prova.foglio = QPageSize::A5;
        FormAnteprima form{cinque_pagine(), nullptr};
        form.show();
        premi(&form, "cmdopzioni_1");
        QFile f{prova.documenti.value(0)};
        QVERIFY(f.open(QIODevice::ReadOnly));
        QVERIFY(f.readAll().contains("/MediaBox [0 0 595."));
    }

    void ogni_copia_e_un_documento() {
        StampantiDiProva prova{cartella_.path()};
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {10, 20, 100, 50}, [&] {
            scrivi(trova<QLineEdit>(&form, "txtNCopies"), "3");
            premi(&form, "cmdStampa");
            QVERIFY(trova<QLabel>(&form, "lblStampaInCorso")->isVisible());
            QTRY_VERIFY(!trova<QLabel>(&form, "lblStampaInCorso")->isVisible());
        }));
        QCOMPARE(prova.documenti.size(), 3);
        for (const QString& file : prova.documenti) QCOMPARE(pagine_pdf(file), 1);
    }

    void un_controllo_si_copia_e_si_stampa() {
        StampantiDiProva prova{cartella_.path()};
        QLabel griglia{"Ritardo"};
        griglia.setObjectName("MSFlexGrid4");
        griglia.resize(120, 60);
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, &griglia, {10, 20, 100, 50}, [&] {
            QCOMPARE(form.windowTitle(), "Anteprima di stampa MSFlexGrid4");
            QVERIFY(!trova<QLabel>(&form, "picCopia")->pixmap().isNull());
            QVERIFY(!trova<QLabel>(&form, "picCopia")->isVisible());
            premi(&form, "cmdStampa");
            QTRY_COMPARE(prova.documenti.size(), 1);
            QTRY_VERIFY(trova<QPushButton>(&form, "cmdStampa")->isEnabled());
        }));
        QCOMPARE(pagine_pdf(prova.documenti[0]), 1);
    }

    void una_stampa_che_fallisce_si_ferma() {
        StampantiDiProva prova{cartella_.path()};
        prova.prossimo = cartella_.filePath("manca/x.pdf");
        MessaggiDiProva detti;
        frmStampaFCPB form;
        QVERIFY(in_anteprima(form, quadro(), {10, 20, 100, 50}, [&] {
            scrivi(trova<QLineEdit>(&form, "txtNCopies"), "2");
            premi(&form, "cmdStampa");
            QTRY_VERIFY(!detti.detti.isEmpty());
            QTRY_VERIFY(trova<QPushButton>(&form, "cmdStampa")->isEnabled());
        }));
        QCOMPARE(detti.detti.size(), 1);  // the second copy is not tried
        QCOMPARE(detti.detti[0].titolo, " Errore in frmStampaFCPB/Print_FCPB");
        QVERIFY(detti.detti[0].testo.startsWith("Errore di StartDoc."));
        QVERIFY(detti.detti[0].testo.endsWith("Stampa interrotta."));
    }

    void testi_delle_misure() {
        QCOMPARE(testo_misura(210), "210");
        QCOMPARE(testo_misura(12.5), "12,5");
        QCOMPARE(testo_misura(0.126), "0,13");
        QCOMPARE(testo_misura(1234.5), "1.234,5");
        QCOMPARE(testo_misura(1234567), "1.234.567");
        QCOMPARE(testo_misura(-1234.5), "-1.234,5");
        QCOMPARE(testo_misura(-0.001), "0");
        QCOMPARE(testo_misura(qQNaN()), "0");
        QCOMPARE(leggi_misura("12,5"), std::optional{12.5});
        QCOMPARE(leggi_misura("12.5"), std::optional{12.5});
        QCOMPARE(leggi_misura("1.234,5"), std::optional{1234.5});
        QCOMPARE(leggi_misura("1.234"), std::optional{1234.0});
        QCOMPARE(leggi_misura(" 7 "), std::optional{7.0});
        QVERIFY(!leggi_misura("").has_value());
        QVERIFY(!leggi_misura("abc").has_value());
        QVERIFY(!leggi_misura("nan").has_value());
        QVERIFY(!leggi_misura("1e99").has_value());
    }
};

QTEST_MAIN(TestStampa)
#include "test_stampa.moc"

#include "files/sessione.h"
#include "printing/form_anteprima.h"
#include "printing/frm_stampa_fcpb.h"
#include "printing/vista_fogli.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/stampanti.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest>

using namespace sortimetra;

namespace {

Rapporto pagine(int quante, Orientamento orientamento = Orientamento::verticale) {
    return {.titolo = "Rapporto di prova",
            .orientamento = orientamento,
            .pagine = quante,
            .disegna = [quante](EasyPrint& p, int n) { stampa_piede(p, n, quante); }};
}

template <class T>
T* trova(QWidget* in, const char* nome) {
    T* t = in->findChild<T*>(QLatin1String{nome});
    if (t == nullptr) qFatal("manca %s", nome);
    return t;
}

void premi(QWidget* in, const char* nome) {
    QTest::mouseClick(trova<QPushButton>(in, nome), Qt::LeftButton);
}

/// A turn of the wheel over the middle of the sheets; 120 is one notch, away from the user above 0.
void ruota(FormAnteprima& form, int quanto, Qt::KeyboardModifiers tasti = {}) {
    QWidget* dove = trova<VistaFogli>(&form, "scorriAnteprima")->viewport();
    const QPointF punto = dove->rect().center();
    QWheelEvent evento{punto, dove->mapToGlobal(punto), {},   {0, quanto}, Qt::NoButton,
                       tasti, Qt::NoScrollPhase,        false};
    QApplication::sendEvent(dove, &evento);
}

QString scritta(FormAnteprima& form) {
    return trova<QLabel>(&form, "lblPagina")->text();
}

int pagine_pdf(const QString& file) {
    QFile f{file};
    if (!f.open(QIODevice::ReadOnly)) return 0;
    static const QRegularExpression conto{QStringLiteral("/Type /Pages.*?/Count (\\d+)"),
                                          QRegularExpression::DotMatchesEverythingOption};
    const auto trovato = conto.match(QString::fromLatin1(f.readAll()));
    return trovato.hasMatch() ? trovato.captured(1).toInt() : 0;
}

/// The pages that the sheets in sight show.
QList<int> in_vista(FormAnteprima& form) {
    QList<int> numeri;
    for (const char* nome : {"foglio", "foglio_2"}) {
        const auto* f = trova<FoglioAnteprima>(&form, nome);
        if (f->isVisible() && f->pagina() > 0) numeri << f->pagina();
    }
    return numeri;
}

}  // namespace

class TestAnteprima : public QObject {
    Q_OBJECT

  private:
    QTemporaryDir cartella_;

  private slots:
    void dice_a_che_pagina_si_e() {
        FormAnteprima form{pagine(5), nullptr};
        form.resize(700, 600);
        form.show();
        QCOMPARE(scritta(form), "pagina 1 di 5");
        QVERIFY(!trova<QPushButton>(&form, "cmdPrima")->isEnabled());
        premi(&form, "cmdAvanti");
        QCOMPARE(scritta(form), "pagina 2 di 5");
        premi(&form, "cmdUltima");
        QCOMPARE(scritta(form), "pagina 5 di 5");
        QVERIFY(!trova<QPushButton>(&form, "cmdUltima")->isEnabled());
        QVERIFY(!trova<QPushButton>(&form, "cmdAvanti")->isEnabled());
        premi(&form, "cmdPrima");
        QCOMPARE(form.pagina(), 1);
        QCOMPARE(trova<QPushButton>(&form, "cmdPrima")->accessibleName(), "Prima pagina");
    }

    void la_rotella_va_alla_pagina_dopo() {
        FormAnteprima form{pagine(5), nullptr};
        form.resize(700, 600);
        form.show();
        ruota(form, -120);
        QCOMPARE(form.pagina(), 2);
        // Parts of a notch, as a touchpad sends them, add up.
        for (int i = 0; i < 3; ++i) ruota(form, -40);
        QCOMPARE(form.pagina(), 3);
        ruota(form, 120);
        QCOMPARE(form.pagina(), 2);
        ruota(form, 240);
        QCOMPARE(form.pagina(), 1);
    }

    void a_foglio_ingrandito_prima_scorre_poi_volta() {
        FormAnteprima form{pagine(5), nullptr};
        form.resize(700, 600);
        form.show();
        auto* grandezza = trova<QComboBox>(&form, "cmbGrandezza");
        grandezza->setCurrentIndex(grandezza->findData(100));
        const auto* barra = trova<VistaFogli>(&form, "scorriAnteprima")->verticalScrollBar();
        QVERIFY(barra->maximum() > 0);
        ruota(form, -120);
        QCOMPARE(form.pagina(), 1);
        QVERIFY(barra->value() > 0);
        for (int i = 0; i < 100 && form.pagina() == 1; ++i) ruota(form, -120);
        QCOMPARE(form.pagina(), 2);
        QCOMPARE(barra->value(), 0);  // the next page from its top
        ruota(form, 120);
        QCOMPARE(form.pagina(), 1);
        QCOMPARE(barra->value(), barra->maximum());  // the one before from its foot
        // The same by keys.
        QTest::keyClick(&form, Qt::Key_PageDown);
        QCOMPARE(form.pagina(), 2);
        QTest::keyClick(&form, Qt::Key_PageDown);
        QCOMPARE(form.pagina(), 2);
        QVERIFY(barra->value() > 0);
        QTest::keyClick(trova<VistaFogli>(&form, "scorriAnteprima"), Qt::Key_PageUp);
        QCOMPARE(barra->value(), 0);
        QTest::keyClick(trova<VistaFogli>(&form, "scorriAnteprima"), Qt::Key_PageUp);
        QCOMPARE(form.pagina(), 1);
        QTest::keyClick(trova<VistaFogli>(&form, "scorriAnteprima"), Qt::Key_End);
        QCOMPARE(form.pagina(), 5);
    }

    void ctrl_cambia_la_grandezza() {
        FormAnteprima form{pagine(2), nullptr};
        form.resize(700, 600);
        form.show();
        auto* grandezza = trova<QComboBox>(&form, "cmbGrandezza");
        const auto* foglio = trova<FoglioAnteprima>(&form, "foglio");
        const int intera = foglio->width();
        QCOMPARE(grandezza->currentText(), "Pagina intera");
        ruota(form, 120, Qt::ControlModifier);
        QVERIFY(foglio->width() > intera);
        QCOMPARE(form.pagina(), 1);
        const int prima = grandezza->currentData().toInt();
        QVERIFY(prima > 0);
        QTest::keyClick(&form, Qt::Key_Plus, Qt::ControlModifier);
        QVERIFY(grandezza->currentData().toInt() > prima);
        QTest::keyClick(&form, Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(grandezza->currentData().toInt(), prima);
        for (int i = 0; i < 20; ++i) QTest::keyClick(&form, Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(grandezza->currentText(), "300%");
        for (int i = 0; i < 20; ++i) ruota(form, -120, Qt::ControlModifier);
        QCOMPARE(grandezza->currentText(), "25%");
        QCOMPARE(form.pagina(), 1);
        QTest::keyClick(&form, Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(grandezza->currentText(), "Pagina intera");
        QCOMPARE(foglio->width(), intera);
    }

    /// What is under the pointer stays there.
    void si_ingrandisce_attorno_al_puntatore() {
        FormAnteprima form{pagine(1), nullptr};
        form.resize(700, 600);
        form.show();
        auto* vista = trova<VistaFogli>(&form, "scorriAnteprima");
        vista->imposta_misura(100);
        vista->verticalScrollBar()->setValue(200);
        const auto* foglio = trova<FoglioAnteprima>(&form, "foglio");
        const QPoint mezzo = vista->viewport()->rect().center();
        const auto parte = [&] {
            return foglio->mapFrom(vista->viewport(), mezzo).y() / static_cast<double>(foglio->height());
        };
        const double prima = parte();
        ruota(form, 120, Qt::ControlModifier);
        QVERIFY(qAbs(parte() - prima) < 0.01);
    }

    void due_pagine_affiancate_dove_c_e_posto() {
        FormAnteprima form{pagine(5), nullptr};
        form.resize(1400, 700);
        form.show();
        QCOMPARE(in_vista(form), (QList{1, 2}));
        QCOMPARE(scritta(form), "pagine 1 e 2 di 5");
        const auto* primo = trova<FoglioAnteprima>(&form, "foglio");
        const auto* secondo = trova<FoglioAnteprima>(&form, "foglio_2");
        QVERIFY(secondo->x() >= primo->x() + primo->width());
        QCOMPARE(secondo->size(), primo->size());
        premi(&form, "cmdAvanti");
        QCOMPARE(in_vista(form), (QList{3, 4}));
        ruota(form, -120);
        QCOMPARE(in_vista(form), (QList{5}));
        QCOMPARE(scritta(form), "pagina 5 di 5");
        premi(&form, "cmdIndietro");
        QCOMPARE(in_vista(form), (QList{3, 4}));
        form.vai(2);
        QCOMPARE(in_vista(form), (QList{1, 2}));
        // No room, and a single page: one sheet.
        form.resize(700, 700);
        QCOMPARE(in_vista(form), (QList{2}));
        FormAnteprima sola{pagine(1), nullptr};
        sola.resize(1400, 700);
        sola.show();
        QCOMPARE(in_vista(sola), (QList{1}));
    }

    void stampa_questa_pagina() {
        StampantiDiProva prova{cartella_.path()};
        FormAnteprima form{pagine(5), nullptr};
        form.resize(700, 600);
        form.show();
        form.vai(3);
        auto* bottone = trova<QPushButton>(&form, "cmdStampaPagina");
        QCOMPARE(bottone->text().remove('&'), "Stampa questa pagina");
        premi(&form, "cmdStampaPagina");
        QCOMPARE(pagine_pdf(prova.documenti.value(0)), 1);
        QVERIFY(form.isVisible());  // one goes on reading
        QCOMPARE(trova<QLabel>(&form, "lblesito")->text(), "Stampata la pagina 3.");
        QCOMPARE(trova<QLineEdit>(&form, "txtpag_1")->text(), "5");
        form.resize(1400, 700);
        QCOMPARE(bottone->text().remove('&'), "Stampa queste pagine");
        premi(&form, "cmdStampaPagina");
        QCOMPARE(pagine_pdf(prova.documenti.value(1)), 2);
        QCOMPARE(trova<QLabel>(&form, "lblesito")->text(), "Stampate le pagine 3 e 4.");
    }

    void annulla_si_chiama_annulla() {
        FormAnteprima form{pagine(5), nullptr};
        const auto* pannello = form.findChild<PannelloAvanzamento*>();
        QCOMPARE(trova<QPushButton>(&form, "cmdAnnulla")->text(), "Annulla");
        PannelloAvanzamento di_ricerca{nullptr};
        QCOMPARE(trova<QPushButton>(&di_ricerca, "cmdAnnulla")->text(), "Annulla Ricerca");
        QVERIFY(pannello != nullptr);
    }

    void si_apre_grande_come_lo_schermo_e_ricorda() {
        Sessione sessione;
        sessione.percorso_programma = cartella_.path().toStdString();
        const QSize schermo = QGuiApplication::primaryScreen()->availableSize();
        {
            FormAnteprima form{pagine(5), nullptr};
            form.ricorda(sessione);
            form.show();
            QVERIFY(form.height() > schermo.height() * 8 / 10 && form.height() <= schermo.height());
            QVERIFY(form.width() > schermo.width() * 8 / 10 && form.width() <= schermo.width());
            form.setGeometry(20, 60, 640, 520);
            form.reject();
        }
        FormAnteprima form{pagine(5), nullptr};
        form.ricorda(sessione);
        form.show();
        QCOMPARE(form.geometry(), QRect(20, 60, 640, 520));
    }

    void anche_la_finestra_dell_immagine() {
        Sessione sessione;
        sessione.percorso_programma = cartella_.path().toStdString();
        StampantiDiProva prova{cartella_.path()};
        const QSize schermo = QGuiApplication::primaryScreen()->availableSize();
        QImage quadro{200, 100, QImage::Format_RGB32};
        quadro.fill(Qt::red);
        const auto apri = [&](const std::function<void(frmStampaFCPB&)>& azione) {
            frmStampaFCPB form;
            form.ricorda(sessione);
            QTimer::singleShot(0, &form, [&] {
                azione(form);
                form.reject();
            });
            QVERIFY(form.StampaFCPB(quadro, 10, 10, 100, 50));
        };
        apri([&](frmStampaFCPB& form) {
            QVERIFY(form.height() > schermo.height() * 8 / 10 && form.height() <= schermo.height());
            form.setGeometry(30, 60, 740, 620);
        });
        apri([](frmStampaFCPB& form) { QCOMPARE(form.geometry(), QRect(30, 60, 740, 620)); });
    }

    /// The smallest screen there is: 960 by 540 with a title bar.
    void sta_in_uno_schermo_piccolo() {
        FormAnteprima form{pagine(5), nullptr};
        frmStampaFCPB immagine;
        for (QWidget* w : {static_cast<QWidget*>(&form), static_cast<QWidget*>(&immagine)}) {
            QVERIFY2(w->minimumSizeHint().height() <= 500,
                     qPrintable(QString::number(w->minimumSizeHint().height())));
            QVERIFY(w->minimumSizeHint().width() <= 960);
        }
    }
};

QTEST_MAIN(TestAnteprima)
#include "test_anteprima.moc"

// What holds on every screen of the program: the keyboard reaches every control and comes round, both ways;
// nothing wants more room than a small display has.

#include "catalogue/form_ricerche.h"
#include "catalogue/form_ricerche_schermi.h"
#include "screens/finestra_ricerca.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/form_spec.h"
#include "statistics/form_stat.h"
#include "support/archivi.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTimer>
#include <QtTest>
#include <algorithm>
#include <memory>

using namespace sortimetra;

namespace {

/// A display of 1920 x 1080 at scale 2, less the title bar.
constexpr QSize kPiccolo{960, 500};

ArchivioEstrazioni archivio_pieno() {
    std::string righe;
    for (int c = 1; c <= 700; ++c)
        for (int w = 0; w < kRuote; ++w) {
            righe += std::to_string(c) + " " + std::string{kNomiRuote[static_cast<std::size_t>(w)].codice};
            for (int i = 0; i < kEstratti; ++i) righe += " " + std::to_string((c + 7 * w + 18 * i) % 90 + 1);
            righe += "\n";
        }
    return prove::da_testo(righe);
}

bool interno(const QWidget* w) {
    const QWidget* padre = w->parentWidget();
    return qobject_cast<const QComboBox*>(padre) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(padre) != nullptr ||
           qobject_cast<const QLineEdit*>(padre) != nullptr;
}

/// A button of a group of which Tab reaches the chosen one alone: the arrows go on from there.
bool per_le_frecce(const QWidget* w) {
    const auto* scelta = qobject_cast<const QRadioButton*>(w);
    if (scelta == nullptr || scelta->isChecked()) return false;
    // Of a group in which nothing is chosen yet it reaches the first.
    if (const QButtonGroup* gruppo = scelta->group(); gruppo != nullptr)
        return gruppo->checkedButton() != nullptr || gruppo->buttons().first() != w;
    const auto altre = w->parentWidget()->findChildren<QRadioButton*>(QString{}, Qt::FindDirectChildrenOnly);
    return std::any_of(altre.begin(), altre.end(), [](const QRadioButton* b) { return b->isChecked(); });
}

/// What Tab must reach in a window as it stands.
QSet<QWidget*> da_visitare(const QWidget& finestra) {
    QSet<QWidget*> tutti;
    for (QWidget* w : finestra.findChildren<QWidget*>())
        if (w->window() == &finestra && w->isVisible() && w->isEnabled() && !interno(w) &&
            !per_le_frecce(w) && (w->focusPolicy() & Qt::TabFocus) != 0)
            tutti << w;
    return tutti;
}

QWidget* col_fuoco(const QWidget& finestra) {
    QWidget* w = finestra.focusWidget();
    while (w != nullptr && interno(w)) w = w->parentWidget();
    return w;
}

QString nome_di(const QWidget* w) {
    return w == nullptr
               ? QStringLiteral("(niente)")
               : QString::fromLatin1(w->metaObject()->className()) + QLatin1Char{' '} + w->objectName();
}

/// Presses Tab (or Shift+Tab) until the keyboard is back where it began, and looks where it has been.
void gira(QWidget& finestra, Qt::Key tasto) {
    QSet<QWidget*> mancanti = da_visitare(finestra);
    QVERIFY(mancanti.size() > 1);
    QWidget* inizio = col_fuoco(finestra);
    QVERIFY(inizio != nullptr);
    const qsizetype al_massimo = 2 * mancanti.size();
    for (qsizetype i = 0; i < al_massimo && !mancanti.isEmpty(); ++i) {
        QTest::keyClick(finestra.focusWidget(), tasto);
        mancanti.remove(col_fuoco(finestra));
    }
    QStringList nomi;
    for (const QWidget* w : mancanti) nomi << nome_di(w);
    QVERIFY2(mancanti.isEmpty(),
             qPrintable(QStringLiteral("mai raggiunti: ") + nomi.join(QStringLiteral(", "))));
}

}  // namespace

class TestOgniSchermo final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_pieno();

    /// Calls `f` with each screen of the program, opened on a search that it hosts.
    template <class F>
    void su_ogni_schermo(F f) {
        for (const RigaSchermo& riga : schermi_del_programma()) {
            const Ricerca* ricerca = nullptr;
            for (const Ricerca& r : ricerche())
                if (r.pronta() && schermo_di(r) == riga.schermo) {
                    ricerca = &r;
                    break;
                }
            if (ricerca == nullptr) continue;
            const std::unique_ptr<QWidget> finestra{riga.crea(sessione_)};
            riga.attiva(*finestra, *ricerca, archivio_);
            finestra->show();
            QVERIFY(QTest::qWaitForWindowActive(finestra.get()));
            f(*finestra);
            if (QTest::currentTestFailed()) {
                qWarning("su %s", qPrintable(finestra->objectName()));
                return;
            }
            finestra->close();
        }
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void tab_gira_su_ogni_schermo() {
        MessaggiDiProva zitti;
        su_ogni_schermo([](QWidget& finestra) {
            for (const Qt::Key tasto : {Qt::Key_Tab, Qt::Key_Backtab}) gira(finestra, tasto);
            if (QTest::currentTestFailed()) return;
            // And with an answer on show: buttons over columns, commands that were asleep.
            if (auto* ricerca = qobject_cast<FinestraRicerca*>(&finestra)) ricerca->avvia();
            if (finestra.focusWidget() == nullptr) finestra.setFocus();
            for (const Qt::Key tasto : {Qt::Key_Tab, Qt::Key_Backtab}) gira(finestra, tasto);
        });
    }

    void tab_gira_nel_catalogo() {
        form_ricerche catalogo{sessione_};
        catalogo.show();
        QVERIFY(QTest::qWaitForWindowActive(&catalogo));
        for (const Qt::Key tasto : {Qt::Key_Tab, Qt::Key_Backtab}) gira(catalogo, tasto);
    }

    void tab_gira_nella_tabella_delle_ruote() {
        Form_stat form{sessione_};
        form.apri(*trova_ricerca("decine"), archivio_);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.findChild<QAbstractButton*>(QStringLiteral("cmdSpec"))->click();
        Form_spec* spec = form.tabella_ruote();
        QVERIFY(spec != nullptr && QTest::qWaitForWindowActive(spec));
        if (spec->focusWidget() == nullptr) spec->griglia()->setFocus();
        for (const Qt::Key tasto : {Qt::Key_Tab, Qt::Key_Backtab}) gira(*spec, tasto);
    }

    void ogni_schermo_sta_in_uno_schermo_piccolo() {
        MessaggiDiProva zitti;
        su_ogni_schermo([](QWidget& finestra) {
            const auto sta = [&finestra] {
                const QSize minima = finestra.minimumSizeHint();
                QVERIFY2(minima.width() <= kPiccolo.width() && minima.height() <= kPiccolo.height(),
                         qPrintable(QStringLiteral("%1: %2 x %3")
                                        .arg(finestra.objectName())
                                        .arg(minima.width())
                                        .arg(minima.height())));
            };
            sta();
            if (auto* ricerca = qobject_cast<FinestraRicerca*>(&finestra)) ricerca->avvia();
            sta();
        });
        form_ricerche catalogo{sessione_};
        catalogo.apri(*trova_ricerca("tabella dei segnalimite cabalistici"));
        const QSize minima = catalogo.minimumSizeHint();
        QVERIFY2(minima.width() <= kPiccolo.width() && minima.height() <= kPiccolo.height(),
                 qPrintable(QStringLiteral("catalogo: %1 x %2").arg(minima.width()).arg(minima.height())));
    }

    void nessun_nome_nasconde_il_testo_di_una_scritta() {
        su_ogni_schermo([](QWidget& finestra) {
            for (const QLabel* l : finestra.findChildren<QLabel*>())
                if (!l->text().isEmpty() && !l->accessibleName().isEmpty())
                    QVERIFY2(l->accessibleName().contains(l->text()), qPrintable(nome_di(l)));
        });
        form_ricerche catalogo{sessione_};
        catalogo.show();
        const auto* stato = catalogo.findChild<QLabel*>(QStringLiteral("lblStato"));
        QVERIFY(stato->accessibleName().isEmpty());
    }

    void le_finestre_hanno_il_ruolo_di_finestre() {
        su_ogni_schermo([](QWidget& finestra) {
            QAccessibleInterface* voce = QAccessible::queryAccessibleInterface(&finestra);
            QCOMPARE(voce->role(), QAccessible::Window);
            QCOMPARE(voce->text(QAccessible::Name), finestra.windowTitle());
        });
        form_ricerche catalogo{sessione_};
        QCOMPARE(QAccessible::queryAccessibleInterface(&catalogo)->role(), QAccessible::Window);
        // A widget inside keeps its own.
        QWidget* dentro = catalogo.findChild<QAbstractButton*>(QStringLiteral("Command1"));
        QCOMPARE(QAccessible::queryAccessibleInterface(dentro)->role(), QAccessible::Button);
    }

    void il_bottone_dell_aspetto_dice_quale() {
        form_ricerche catalogo{sessione_};
        const auto* skin = catalogo.findChild<QAbstractButton*>(QStringLiteral("cmdSkin"));
        catalogo.carica_skin(2);
        QCOMPARE(skin->accessibleName(), QStringLiteral("Aspetto: Notte"));
        catalogo.carica_skin(1);
        QCOMPARE(skin->accessibleName(), QStringLiteral("Aspetto: Carta"));
    }

    void i_riquadri_hanno_figure_proprie() {
        const auto figura = [](auto&& mostra) {
            QImage vista;
            int con_fuoco = 0;
            QTimer::singleShot(0, [&] {
                auto* riquadro = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (riquadro == nullptr) return;
                vista = riquadro->iconPixmap().toImage();
                for (const QAbstractButton* b : riquadro->buttons()) con_fuoco += b->hasFocus() ? 1 : 0;
                // No picture of the desktop's: those are small ones, made large.
                if (riquadro->icon() != QMessageBox::NoIcon) vista = {};
                riquadro->reject();
            });
            mostra();
            return con_fuoco <= 1 ? vista : QImage{};
        };
        const QString titolo = kTitoloMessaggi;
        const QImage informa = figura([&] { messaggi().informa(nullptr, titolo, titolo); });
        const QImage avvisa = figura([&] { messaggi().avvisa(nullptr, titolo, titolo); });
        const QImage ferma = figura([&] { messaggi().ferma(nullptr, titolo, titolo); });
        const QImage chiede =
            figura([&] { static_cast<void>(messaggi().chiede_o_annulla(nullptr, titolo, titolo)); });
        for (const QImage& i : {informa, avvisa, ferma, chiede}) QVERIFY(!i.isNull());
        QVERIFY(informa != avvisa && avvisa != ferma && chiede != informa);
    }

    void esci_e_chiudi_non_stanno_insieme() {
        form_ricerche catalogo{sessione_};
        catalogo.show();
        catalogo.apri(*trova_ricerca("tabella dei segnalimite cabalistici"));
        const auto* esci = catalogo.findChild<QAbstractButton*>(QStringLiteral("Command3"));
        QVERIFY(esci->isVisible());
        QCOMPARE(esci->text(), QStringLiteral("Esci"));
        const auto* chiudi = catalogo.findChild<QAbstractButton*>(QStringLiteral("Command1"));
        QVERIFY(!chiudi->isVisible());
        QTest::mouseClick(const_cast<QAbstractButton*>(esci), Qt::LeftButton);
        QVERIFY(chiudi->isVisible());
    }
};

QTEST_MAIN(TestOgniSchermo)
#include "test_ogni_schermo.moc"

#include "screens/lingua.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextEdit>
#include <QTranslator>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

/// Takes down the words for which nobody has a translation.
class Spia final : public QTranslator {
  public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* contesto, const char* inglese, const char*,
                                    int) const override {
        const QString c = QString::fromUtf8(contesto);
        const QString parola = QString::fromUtf8(inglese);
        // Names of keys and of paper sizes, titles that are never shown, units, the direction of writing.
        const bool nome = c == QLatin1String("QShortcut") || c == QLatin1String("QPageSize") ||
                          c == QLatin1String("QGuiApplication");
        if (c.startsWith(QLatin1Char('Q')) && !nome && parola != QLatin1String("Form") &&
            parola != QLatin1String("mm") && parola != QLatin1String("...") && !mancanti.contains(parola))
            mancanti << parola;
        return {};
    }
    mutable QStringList mancanti;
};

}  // namespace

/// The toolkit's own words as a user meets them.
class TestLingua : public QObject {
    Q_OBJECT

    Spia spia_;

  private slots:
    void initTestCase() {
        // What the dictionary does not know comes here next. Qt's own translation is not loaded: the program
        // must do without it.
        QCoreApplication::installTranslator(&spia_);
        installa_dizionario(*qApp);
    }

    void nessuna_parola_resta_inglese() {
        {
            QFileDialog d;
            d.setOption(QFileDialog::DontUseNativeDialog);
            d.setAcceptMode(QFileDialog::AcceptSave);
            d.show();
            QVERIFY(QTest::qWaitForWindowExposed(&d));
            QFileDialog cartelle;
            cartelle.setOption(QFileDialog::DontUseNativeDialog);
            cartelle.setFileMode(QFileDialog::Directory);
            cartelle.show();
            QVERIFY(QTest::qWaitForWindowExposed(&cartelle));
        }
        for (const QString& file : {QString{}, QStringLiteral("prova.pdf")}) {
            QPrinter stampante;
            stampante.setOutputFileName(file);
            QPrintDialog d{&stampante};
            d.show();
            QVERIFY(QTest::qWaitForWindowExposed(&d));
            QPageSetupDialog pagina{&stampante};
            pagina.show();
            QVERIFY(QTest::qWaitForWindowExposed(&pagina));
        }
        QMessageBox tutti;
        tutti.setStandardButtons(QMessageBox::StandardButtons{0x0ffffc00});
        QLineEdit casella;
        const std::unique_ptr<QMenu> riga{casella.createStandardContextMenu()};
        QTextEdit foglio;
        const std::unique_ptr<QMenu> testo{foglio.createStandardContextMenu()};
        QVERIFY2(spia_.mancanti.isEmpty(), qPrintable(spia_.mancanti.join(QLatin1Char('\n'))));
    }

    void i_bottoni_dei_messaggi() {
        QMessageBox m{QMessageBox::Question,
                      {},
                      QStringLiteral("?"),
                      QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel};
        QCOMPARE(m.button(QMessageBox::Yes)->text(), QStringLiteral("&Sì"));
        QCOMPARE(m.button(QMessageBox::Cancel)->text(), QStringLiteral("Annulla"));
    }

    void il_menu_di_una_casella() {
        QLineEdit casella;
        std::unique_ptr<QMenu> menu{casella.createStandardContextMenu()};
        QStringList voci;
        for (const QAction* a : menu->actions())
            if (!a->isSeparator())
                voci << a->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&'));
        QVERIFY(voci.contains(QStringLiteral("Incolla")));
        for (const char* inglese : {"Undo", "Redo", "Cut", "Copy", "Paste", "Delete", "Select All"})
            QVERIFY2(!voci.contains(QLatin1String(inglese)), inglese);
    }

    void la_finestra_dei_file() {
        QFileDialog d;
        d.setOption(QFileDialog::DontUseNativeDialog);
        d.setAcceptMode(QFileDialog::AcceptSave);
        QStringList scritte;
        for (const QLabel* l : d.findChildren<QLabel*>()) scritte << l->text();
        for (const QPushButton* b : d.findChildren<QPushButton*>()) scritte << b->text();
        scritte.replaceInStrings(QStringLiteral("&"), QString{});
        QVERIFY2(scritte.contains(QStringLiteral("Salva")), qPrintable(scritte.join(QLatin1Char('|'))));
        for (const char* inglese : {"Look in:", "Files of type:", "File name:", "Save", "Cancel"})
            QVERIFY2(!scritte.contains(QLatin1String(inglese)), inglese);
    }

    void la_finestra_della_stampante() {
        QPrinter stampante;
        QPrintDialog d{&stampante};
        QStringList scritte;
        for (const QLabel* l : d.findChildren<QLabel*>()) scritte << l->text();
        for (const QAbstractButton* b : d.findChildren<QAbstractButton*>()) scritte << b->text();
        for (const QGroupBox* q : d.findChildren<QGroupBox*>()) scritte << q->title();
        scritte.replaceInStrings(QStringLiteral("&"), QString{});
        scritte << d.windowTitle();
        QVERIFY2(scritte.contains(QStringLiteral("Stampa")), qPrintable(scritte.join(QLatin1Char('|'))));
        for (const char* inglese : {"Print", "Printer", "Copies", "Options", "Properties", "Cancel"})
            QVERIFY2(!scritte.contains(QLatin1String(inglese)), inglese);
    }

    void numeri_e_date() {
        parla_italiano(*qApp);
        QCOMPARE(QLocale{}.decimalPoint(), QStringLiteral(","));
        QCOMPARE(QLocale{}.language(), QLocale::Italian);
    }
};

QTEST_MAIN(TestLingua)
#include "test_lingua.moc"

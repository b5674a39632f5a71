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
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QtTest>

using namespace sortimetra;

/// The toolkit's own words as a user meets them.
class TestLingua : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { parla_italiano(*qApp); }

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
        QCOMPARE(QLocale{}.decimalPoint(), QStringLiteral(","));
        QCOMPARE(QLocale{}.language(), QLocale::Italian);
    }
};

QTEST_MAIN(TestLingua)
#include "test_lingua.moc"

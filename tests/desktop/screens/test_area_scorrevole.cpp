#include "screens/area_scorrevole.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

/// Thirty fields in a room for five, a button under them.
struct Finestra {
    QWidget finestra;
    QWidget* colonna = new QWidget;
    QList<QLineEdit*> campi;
    AreaScorrevole* area = nullptr;
    QPushButton* sotto = new QPushButton;

    Finestra() {
        auto* righe = new QVBoxLayout{colonna};
        for (int i = 0; i < 30; ++i) {
            campi << new QLineEdit;
            righe->addWidget(campi.last());
        }
        auto* tutto = new QVBoxLayout{&finestra};
        area = new AreaScorrevole{colonna};
        tutto->addWidget(area);
        tutto->addWidget(sotto);
        finestra.resize(300, 200);
        finestra.show();
    }
    /// Whether the whole of it is in sight.
    [[nodiscard]] bool in_vista(const QWidget* w) const {
        const QRect dove{w->mapTo(area->viewport(), QPoint{}), w->size()};
        return area->viewport()->rect().contains(dove);
    }
};

}  // namespace

class TestAreaScorrevole : public QObject {
    Q_OBJECT
  private slots:
    void chi_arriva_da_fuori_si_vede();
    void chi_e_premuto_resta_sotto_il_puntatore();
};

void TestAreaScorrevole::chi_arriva_da_fuori_si_vede() {
    Finestra f;
    QVERIFY(QTest::qWaitForWindowActive(&f.finestra));
    f.sotto->setFocus();
    QVERIFY(!f.in_vista(f.campi.last()));
    QTest::keyClick(f.sotto, Qt::Key_Backtab, Qt::ShiftModifier);
    QTRY_VERIFY(f.campi.last()->hasFocus());
    QVERIFY(f.in_vista(f.campi.last()));
    // From the bottom round to the top.
    f.sotto->setFocus();
    QTest::keyClick(f.sotto, Qt::Key_Tab);
    QTRY_VERIFY(f.campi.first()->hasFocus());
    QVERIFY(f.in_vista(f.campi.first()));
    QVERIFY(!f.in_vista(f.campi.last()));
}

void TestAreaScorrevole::chi_e_premuto_resta_sotto_il_puntatore() {
    Finestra f;
    QVERIFY(QTest::qWaitForWindowActive(&f.finestra));
    // Half of the third one.
    QScrollBar* barra = f.area->verticalScrollBar();
    barra->setValue(f.campi[2]->y() + f.campi[2]->height() / 2);
    const int prima = barra->value();
    QVERIFY(!f.in_vista(f.campi[2]));
    const QPoint punto{5, f.campi[2]->height() - 3};
    // Where a pointer presses: a button is down while the focus comes.
    QWindow* finestra = f.finestra.windowHandle();
    QTest::mouseClick(finestra, Qt::LeftButton, {}, f.campi[2]->mapTo(&f.finestra, punto));
    QTRY_VERIFY(f.campi[2]->hasFocus());
    QCOMPARE(barra->value(), prima);
}

QTEST_MAIN(TestAreaScorrevole)
#include "test_area_scorrevole.moc"

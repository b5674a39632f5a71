#include "support/archivi.h"

#include <QProcess>
#include <QtTest>
#include <filesystem>

namespace {

struct Esito {
    int codice = -1;
    QByteArray uscita, errori;
};

Esito esegui(const QStringList& argomenti, bool schermo = true) {
    QProcess p;
    auto ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("QT_QPA_PLATFORM"),
                    schermo ? QStringLiteral("offscreen") : QStringLiteral("xcb"));
    if (!schermo) ambiente.remove(QStringLiteral("DISPLAY"));
    ambiente.insert(QStringLiteral("XDG_RUNTIME_DIR"), QStringLiteral("/tmp"));
    p.setProcessEnvironment(ambiente);
    p.start(QStringLiteral(SORTIMETRA_BIN "/sortimetra"), argomenti);
    if (!p.waitForFinished(20000)) {
        p.kill();
        p.waitForFinished();
        return {};
    }
    return {p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError()};
}

}  // namespace

/// The program `sortimetra` as a user starts it.
class TestAvvio final : public QObject {
    Q_OBJECT

  private slots:
    void aiuto_e_versione_senza_schermo() {
        const Esito aiuto = esegui({QStringLiteral("--aiuto")}, false);
        QCOMPARE(aiuto.codice, 0);
        QVERIFY(aiuto.uscita.startsWith("Uso: sortimetra [opzioni]\n"));
        for (const char* opzione : {"--cartella", "--aiuto", "--versione"})
            QVERIFY(aiuto.uscita.contains(opzione));
        QVERIFY(aiuto.errori.isEmpty());
        const Esito versione = esegui({QStringLiteral("--versione")}, false);
        QCOMPARE(versione.codice, 0);
        QVERIFY(QRegularExpression{QStringLiteral("^sortimetra \\d+\\.\\d+\\.\\d+\\n$")}
                    .match(QString::fromUtf8(versione.uscita))
                    .hasMatch());
    }

    void senza_schermo_lo_dice() {
        const Esito e = esegui({}, false);
        QCOMPARE(e.codice, 1);
        QVERIFY(e.uscita.isEmpty());
        QVERIFY2(e.errori.startsWith("sortimetra: non c'è uno schermo"), e.errori.constData());
        QCOMPARE(e.errori.count('\n'), 1);
    }

    void uso_sbagliato_data() {
        QTest::addColumn<QStringList>("argomenti");
        QTest::addColumn<QByteArray>("dice");
        QTest::newRow("opzione") << QStringList{QStringLiteral("--cartela"), QStringLiteral("x")}
                                 << QByteArray{"--cartela"};
        QTest::newRow("senza valore")
            << QStringList{QStringLiteral("--cartella")} << QByteArray{"--cartella"};
        QTest::newRow("valore vuoto")
            << QStringList{QStringLiteral("--cartella=")} << QByteArray{"--cartella"};
        QTest::newRow("argomento") << QStringList{QStringLiteral("ricerca")} << QByteArray{"ricerca"};
    }
    void uso_sbagliato() {
        QFETCH(QStringList, argomenti);
        QFETCH(QByteArray, dice);
        const Esito e = esegui(argomenti);
        QCOMPARE(e.codice, 2);
        QVERIFY(e.uscita.isEmpty());
        QVERIFY2(e.errori.contains(dice) && e.errori.contains("--aiuto"), e.errori.constData());
    }
};

QTEST_GUILESS_MAIN(TestAvvio)
#include "test_avvio.moc"

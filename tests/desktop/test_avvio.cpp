#include "files/sessione.h"
#include "support/archivi.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
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

    /// The program works in the folder that the settings name, the terminal's too; the line's folder wins.
    void cartella_di_lavoro_data() {
        QTest::addColumn<bool>("ricordata");
        QTest::addColumn<QString>("sulla_riga");
        QTest::addColumn<QString>("lavora_in");
        QTest::newRow("nessuna scelta") << false << QString{} << QStringLiteral(".local/share/sortimetra");
        QTest::newRow("scelta nella finestra") << true << QString{} << QStringLiteral("scelta");
        QTest::newRow("scritta sulla riga") << true << QStringLiteral("riga") << QStringLiteral("riga");
    }
    void cartella_di_lavoro() {
        QFETCH(bool, ricordata);
        QFETCH(QString, sulla_riga);
        QFETCH(QString, lavora_in);
        const QTemporaryDir casa;
        for (const char* nome : {"scelta/archivio", "riga/archivio"})
            QVERIFY(QDir{casa.path()}.mkpath(QLatin1String{nome}));
        const QByteArray vecchia = qgetenv("XDG_CONFIG_HOME");
        qputenv("XDG_CONFIG_HOME", casa.filePath(QStringLiteral("impostazioni")).toUtf8());
        if (ricordata)
            QVERIFY(sortimetra::ricorda_cartella(casa.filePath(QStringLiteral("scelta")).toStdString()));
        QProcess p;
        auto ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        ambiente.insert(QStringLiteral("HOME"), casa.path());
        ambiente.remove(QStringLiteral("XDG_DATA_HOME"));
        p.setProcessEnvironment(ambiente);
        vecchia.isEmpty() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", vecchia);
        QStringList argomenti;
        if (!sulla_riga.isEmpty()) argomenti << QStringLiteral("--cartella") << casa.filePath(sulla_riga);
        p.start(QStringLiteral(SORTIMETRA_BIN "/sortimetra"), argomenti);
        // The catalogue's memory is written where the program works, as soon as it is open.
        const QString memoria = QStringLiteral("/ric.ini");
        const bool scritta =
            QTest::qWaitFor([&] { return QFile::exists(casa.filePath(lavora_in) + memoria); }, 20000);
        p.kill();
        p.waitForFinished();
        QVERIFY2(scritta, p.readAllStandardError().constData());
        for (const char* altra : {"scelta", "riga", ".local/share/sortimetra"})
            if (lavora_in != QLatin1String{altra})
                QVERIFY2(!QFile::exists(casa.filePath(QLatin1String{altra}) + memoria), altra);
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

#include "catalogue/form_ricerche.h"
#include "files/sessione.h"
#include "screens/lingua.h"
#include "stores/apertura.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QSettings>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

namespace {

constexpr const char* kAiuto =
    "Uso: sortimetra [opzioni]\n"
    "\n"
    "Apre il catalogo delle ricerche statistiche sul Lotto e sugli altri giochi.\n"
    "\n"
    "  --cartella DIR  cartella del programma, che contiene la cartella \"archivio\"\n"
    "                  (senza: la cartella dell'eseguibile se contiene \"archivio\",\n"
    "                  altrimenti la cartella dei dati dell'utente)\n"
    "  --aiuto         mostra questo testo\n"
    "  --versione      mostra la versione\n"
    "\n"
    "Senza uno schermo si usa sortimetra-cli.\n";

constexpr const char* kChiaveCartella = "cartella";

struct Opzioni {
    bool aiuto = false;
    bool versione = false;
    std::optional<std::filesystem::path> cartella;
    std::string errore;  ///< what is wrong with the command line; empty if nothing
};

Opzioni leggi_opzioni(const QStringList& argomenti) {
    QCommandLineParser lettore;
    const QCommandLineOption cartella{QStringLiteral("cartella"), {}, QStringLiteral("DIR")};
    const QCommandLineOption aiuto{QStringLiteral("aiuto")};
    const QCommandLineOption versione{QStringLiteral("versione")};
    lettore.addOptions({cartella, aiuto, versione});
    Opzioni o;
    const bool letti = lettore.parse(argomenti);
    o.aiuto = lettore.isSet(aiuto);
    o.versione = lettore.isSet(versione);
    if (lettore.isSet(cartella)) o.cartella = lettore.value(cartella).toStdString();
    if (!lettore.unknownOptionNames().isEmpty())
        o.errore = "opzione sconosciuta: --" + lettore.unknownOptionNames().first().toStdString();
    else if (!letti || (o.cartella && o.cartella->empty()))
        o.errore = "--cartella vuole il nome di una cartella";
    else if (!lettore.positionalArguments().isEmpty())
        o.errore = "argomento inatteso: " + lettore.positionalArguments().first().toStdString();
    return o;
}

/// The folder asked for, else the one chosen in the window last time if an archive is still there, else the
/// usual one.
std::filesystem::path cartella_di_lavoro(const std::optional<std::filesystem::path>& chiesta) {
    if (!chiesta) {
        const std::filesystem::path ricordata =
            QSettings{}.value(QLatin1String{kChiaveCartella}).toString().toStdString();
        if (!ricordata.empty() && sortimetra::contiene_archivio(ricordata / "archivio")) return ricordata;
    }
    return sortimetra::cartella_programma(chiesta);
}

/// Stands in for Qt's words while the application is made: it ends with a fatal message where there is no
/// display, after others that only a developer reads.
void senza_schermo(QtMsgType genere, const QMessageLogContext&, const QString&) {
    if (genere != QtFatalMsg) return;
    std::fputs(
        "sortimetra: non c'è uno schermo su cui aprire le finestre; avvia il programma da una sessione "
        "grafica, oppure usa sortimetra-cli.\n",
        stderr);
    std::_Exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    // Help and version work without a display, so they come before the application.
    QStringList grezzi;
    for (int i = 0; i < argc; ++i) grezzi << QString::fromLocal8Bit(argv[i]);
    const Opzioni prime = leggi_opzioni(grezzi);
    if (prime.aiuto) {
        std::fputs(kAiuto, stdout);
        return 0;
    }
    if (prime.versione) {
        std::puts("sortimetra " SORTIMETRA_VERSIONE);
        return 0;
    }

    const QtMessageHandler voce = qInstallMessageHandler(senza_schermo);
    QApplication applicazione{argc, argv};
    qInstallMessageHandler(voce);
    QApplication::setApplicationName(QStringLiteral("sortimetra"));
    QApplication::setOrganizationName(QStringLiteral("sortimetra"));
    QApplication::setApplicationDisplayName(QString{});
    QApplication::setApplicationVersion(QStringLiteral(SORTIMETRA_VERSIONE));
    QApplication::setDesktopFileName(QStringLiteral("sortimetra"));
    // The catalogue hides while a search is open; the program ends with the catalogue, not with that screen.
    QApplication::setQuitOnLastWindowClosed(false);

    // What Qt understands of the command line (platform, style …) it has taken away by now.
    const Opzioni opzioni = leggi_opzioni(QApplication::arguments());
    if (!opzioni.errore.empty()) {
        std::fprintf(stderr, "sortimetra: %s\nsortimetra --aiuto mostra le opzioni.\n",
                     opzioni.errore.c_str());
        return 2;
    }

    sortimetra::parla_italiano(applicazione);
    sortimetra::Sessione sessione;
    sessione.percorso_programma = cartella_di_lavoro(opzioni.cartella);
    sortimetra::form_ricerche catalogo{sessione};
    QApplication::setWindowIcon(QIcon{QStringLiteral(":/sortimetra.svg")});
    QObject::connect(&catalogo, &sortimetra::form_ricerche::terminata, &applicazione, &QApplication::quit);
    QObject::connect(
        &catalogo, &sortimetra::form_ricerche::cartella_scelta, &applicazione,
        [](const QString& cartella) { QSettings{}.setValue(QLatin1String{kChiaveCartella}, cartella); });
    catalogo.show();
    return QApplication::exec();
}

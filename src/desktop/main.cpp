#include "catalogue/form_ricerche.h"
#include "files/limiti_processo.h"
#include "files/sessione.h"
#include "opzioni_avvio.h"
#include "screens/lingua.h"
#include "text/senza_controlli.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <optional>
#include <string>
#include <string_view>

namespace {

/// Lines of the help end before this column, as a terminal shows them.
constexpr std::size_t kLarghezza = 80;
constexpr std::size_t kRientro = 18;

/// The program's help, from the table of its options.
std::string aiuto() {
    std::string t =
        "Uso: sortimetra [opzioni]\n\n"
        "Apre il catalogo delle ricerche statistiche sul Lotto e sugli altri giochi.\n\n";
    for (const sortimetra::Opzione& o : sortimetra::kOpzioniAvvio) {
        std::string riga = "  ";
        riga += o.nome;
        if (!o.meta.empty()) (riga += ' ') += o.meta;
        riga.resize(std::max(riga.size() + 1, kRientro), ' ');
        for (std::string_view resto = o.frase; !resto.empty();) {
            const std::size_t fine = std::min(resto.find(' '), resto.size());
            if (riga.size() + fine > kLarghezza) {
                riga.back() = '\n';
                t += riga;
                riga.assign(kRientro, ' ');
            }
            riga += resto.substr(0, fine);
            riga += ' ';
            resto.remove_prefix(std::min(fine + 1, resto.size()));
        }
        riga.back() = '\n';
        t += riga;
    }
    return t + "\nSenza uno schermo si usa sortimetra-cli.\n";
}

struct Opzioni {
    bool aiuto = false;
    bool versione = false;
    bool senza_copia = false;
    std::optional<std::filesystem::path> cartella;
    std::string errore;  ///< what is wrong with the command line; empty if nothing
};

Opzioni leggi_opzioni(const QStringList& argomenti) {
    QCommandLineParser lettore;
    const auto qt = [](std::string_view testo) {
        return QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size()));
    };
    for (const sortimetra::Opzione& voce : sortimetra::kOpzioniAvvio)
        lettore.addOption({qt(voce.nome.substr(2)), {}, qt(voce.meta)});
    const auto cartella = QStringLiteral("cartella");
    Opzioni o;
    const bool letti = lettore.parse(argomenti);
    o.aiuto = lettore.isSet(QStringLiteral("aiuto"));
    o.versione = lettore.isSet(QStringLiteral("versione"));
    o.senza_copia = lettore.isSet(QStringLiteral("senza-copia"));
    if (lettore.isSet(cartella)) o.cartella = lettore.value(cartella).toStdString();
    if (!lettore.unknownOptionNames().isEmpty())
        o.errore = "opzione sconosciuta: --" + lettore.unknownOptionNames().first().toStdString();
    else if (!letti || (o.cartella && o.cartella->empty()))
        o.errore = "--cartella vuole il nome di una cartella";
    else if (!lettore.positionalArguments().isEmpty())
        o.errore = "argomento inatteso: " + lettore.positionalArguments().first().toStdString();
    return o;
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

/// Says what went wrong where the program was started: nothing there is obeyed by a terminal.
void lamenta(const std::string& frase) {
    std::fprintf(stderr, "sortimetra: %s\n", sortimetra::senza_controlli(frase).c_str());
}

int esegui(int argc, char** argv) {
    // Help and version work without a display, so they come before the application.
    QStringList grezzi;
    for (int i = 0; i < argc; ++i) grezzi << QString::fromLocal8Bit(argv[i]);
    const Opzioni prime = leggi_opzioni(grezzi);
    if (prime.aiuto) {
        std::fputs(aiuto().c_str(), stdout);
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
        lamenta(opzioni.errore + "\nsortimetra --aiuto mostra le opzioni.");
        return 2;
    }
    if (const auto perche = sortimetra::senza_cartella_programma(opzioni.cartella)) {
        lamenta(*perche);
        return 3;
    }

    sortimetra::parla_italiano(applicazione);
    sortimetra::Sessione sessione;
    sessione.percorso_programma = sortimetra::cartella_programma(opzioni.cartella);
    sessione.copia = !opzioni.senza_copia;
    sortimetra::form_ricerche catalogo{sessione};
    QApplication::setWindowIcon(QIcon{QStringLiteral(":/sortimetra.svg")});
    QObject::connect(&catalogo, &sortimetra::form_ricerche::terminata, &applicazione, &QApplication::quit);
    // The terminal's program starts from the same setting.
    QObject::connect(&catalogo, &sortimetra::form_ricerche::cartella_scelta, &applicazione,
                     [](const QString& cartella) {
                         if (const auto fatto = sortimetra::ricorda_cartella(cartella.toStdString()); !fatto)
                             lamenta(fatto.error().testo());
                     });
    catalogo.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    sortimetra::ascolta_i_limiti("sortimetra");
    try {
        return esegui(argc, argv);
    } catch (const std::bad_alloc&) {
        return sortimetra::memoria_finita();
    }
}

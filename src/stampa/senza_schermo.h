#pragma once

#include "files/errore.h"

#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <QtGlobal>
#include <expected>

namespace sortimetra {

/// Starts Qt where there is no display: an application that paints and shows nothing, made once. Qt would end
/// the process where its plug-in is missing, so that is asked first. Nothing to be done where the program has
/// an application already.
template <class Applicazione>
[[nodiscard]] std::expected<void, ErroreArchivio> avvia_senza_schermo() {
    if (QCoreApplication::instance() != nullptr) return {};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt's remarks (a locale that is not UTF-8, a folder of its own that it misses) are nothing to a user of
    // the command line.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    bool trovato = false;
    for (const QString& cartella : QCoreApplication::libraryPaths())
        trovato = trovato || QFile::exists(cartella + QStringLiteral("/platforms/libqoffscreen.so"));
    if (!trovato)
        return std::unexpected(
            ErroreArchivio{"libqoffscreen.so", "la parte di Qt che disegna senza schermo non è installata"});
    static int argc = 1;
    static char nome[] = "sortimetra";
    static char* argv[] = {nome, nullptr};
    // Never destroyed: fonts and plug-ins would be torn down after the libraries that they live in.
    static auto* applicazione = new Applicazione(argc, argv);
    (void)applicazione;
    return {};
}

}  // namespace sortimetra

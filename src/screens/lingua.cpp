#include "screens/lingua.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <cstring>
#include <iterator>

namespace sortimetra {

namespace {

struct Parola {
    const char* contesto;
    const char* inglese;
    const char* italiano;
};

constexpr Parola kParole[] = {
    {"QPlatformTheme", "OK", "OK"},
    {"QPlatformTheme", "Save", "Salva"},
    {"QPlatformTheme", "Open", "Apri"},
    {"QPlatformTheme", "Cancel", "Annulla"},
    {"QPlatformTheme", "Close", "Chiudi"},
    {"QPlatformTheme", "Apply", "Applica"},
    {"QPlatformTheme", "Reset", "Ripristina"},
    {"QPlatformTheme", "Help", "Aiuto"},
    {"QPlatformTheme", "Discard", "Non salvare"},
    {"QPlatformTheme", "&Yes", "&Sì"},
    {"QPlatformTheme", "&No", "&No"},
    {"QPlatformTheme", "Abort", "Interrompi"},
    {"QPlatformTheme", "Retry", "Riprova"},
    {"QPlatformTheme", "Ignore", "Ignora"},
    {"QLineEdit", "&Undo", "&Annulla"},
    {"QLineEdit", "&Redo", "&Ripeti"},
    {"QLineEdit", "Cu&t", "&Taglia"},
    {"QLineEdit", "&Copy", "&Copia"},
    {"QLineEdit", "&Paste", "&Incolla"},
    {"QLineEdit", "Delete", "Elimina"},
    {"QLineEdit", "Select All", "Seleziona tutto"},
    {"QWidgetTextControl", "&Undo", "&Annulla"},
    {"QWidgetTextControl", "&Redo", "&Ripeti"},
    {"QWidgetTextControl", "Cu&t", "&Taglia"},
    {"QWidgetTextControl", "&Copy", "&Copia"},
    {"QWidgetTextControl", "Copy &Link Location", "Copia &collegamento"},
    {"QWidgetTextControl", "&Paste", "&Incolla"},
    {"QWidgetTextControl", "Delete", "Elimina"},
    {"QWidgetTextControl", "Select All", "Seleziona tutto"},
    {"QAbstractSpinBox", "&Select All", "&Seleziona tutto"},
    {"QAbstractSpinBox", "&Step up", "&Aumenta"},
    {"QAbstractSpinBox", "Step &down", "&Diminuisci"},
    {"QScrollBar", "Scroll here", "Scorri fin qui"},
    {"QScrollBar", "Top", "Inizio"},
    {"QScrollBar", "Bottom", "Fine"},
    {"QScrollBar", "Page up", "Pagina precedente"},
    {"QScrollBar", "Page down", "Pagina successiva"},
    {"QScrollBar", "Scroll up", "Scorri in su"},
    {"QScrollBar", "Scroll down", "Scorri in giù"},
    {"QScrollBar", "Left edge", "Inizio riga"},
    {"QScrollBar", "Right edge", "Fine riga"},
    {"QScrollBar", "Page left", "Pagina a sinistra"},
    {"QScrollBar", "Page right", "Pagina a destra"},
    {"QScrollBar", "Scroll left", "Scorri a sinistra"},
    {"QScrollBar", "Scroll right", "Scorri a destra"},
    {"QFileDialog", "Look in:", "Cerca in:"},
    {"QFileDialog", "Back", "Indietro"},
    {"QFileDialog", "Go back", "Torna indietro"},
    {"QFileDialog", "Forward", "Avanti"},
    {"QFileDialog", "Go forward", "Vai avanti"},
    {"QFileDialog", "Parent Directory", "Cartella superiore"},
    {"QFileDialog", "Go to the parent directory", "Va alla cartella superiore"},
    {"QFileDialog", "Create New Folder", "Nuova cartella"},
    {"QFileDialog", "Create a New Folder", "Crea una nuova cartella"},
    {"QFileDialog", "List View", "Elenco"},
    {"QFileDialog", "Change to list view mode", "Mostra come elenco"},
    {"QFileDialog", "Detail View", "Dettagli"},
    {"QFileDialog", "Change to detail view mode", "Mostra i dettagli"},
    {"QFileDialog", "Sidebar", "Barra laterale"},
    {"QFileDialog", "List of places and bookmarks", "Luoghi e segnalibri"},
    {"QFileDialog", "Files", "File"},
    {"QFileDialog", "Files of type:", "Tipo di file:"},
    {"QFileDialog", "File &name:", "&Nome del file:"},
    {"QFileDialog", "Directory:", "Cartella:"},
    {"QFileDialog", "Find Directory", "Cerca una cartella"},
    {"QFileDialog", "Open", "Apri"},
    {"QFileDialog", "&Open", "&Apri"},
    {"QFileDialog", "&Save", "&Salva"},
    {"QFileDialog", "Save As", "Salva con nome"},
    {"QFileDialog", "&Choose", "&Scegli"},
    {"QFileDialog", "Cancel", "Annulla"},
    {"QFileDialog", "&Rename", "&Rinomina"},
    {"QFileDialog", "&Delete", "&Elimina"},
    {"QFileDialog", "Delete", "Elimina"},
    {"QFileDialog", "New Folder", "Nuova cartella"},
    {"QFileDialog", "&New Folder", "&Nuova cartella"},
    {"QFileDialog", "Show ", "Mostra "},
    {"QFileDialog", "Show &hidden files", "Mostra i file &nascosti"},
    {"QFileDialog", "All Files (*)", "Tutti i file (*)"},
    {"QFileDialog", "All files (*)", "Tutti i file (*)"},
    {"QFileDialog", "Directories", "Cartelle"},
    {"QFileDialog", "Recent Places", "Luoghi recenti"},
    {"QFileDialog", "Remove", "Rimuovi"},
    {"QFileDialog", "My Computer", "Computer"},
    {"QFileDialog", "Drive", "Disco"},
    {"QFileDialog", "%1 already exists.\nDo you want to replace it?", "%1 esiste già.\nVuoi sostituirlo?"},
    {"QFileDialog", "%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nFile non trovato.\nControlla il nome del file."},
    {"QFileDialog", "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nCartella non trovata.\nControlla il nome della cartella."},
    {"QFileSystemModel", "Name", "Nome"},
    {"QFileSystemModel", "Size", "Dimensione"},
    {"QFileSystemModel", "Kind", "Tipo"},
    {"QFileSystemModel", "Type", "Tipo"},
    {"QFileSystemModel", "Date Modified", "Modificato"},
    {"QFileSystemModel", "Computer", "Computer"},
    {"QFileSystemModel", "My Computer", "Computer"},
};

class Dizionario final : public QTranslator {
  public:
    using QTranslator::QTranslator;

    [[nodiscard]] QString translate(const char* contesto, const char* testo, const char*,
                                    int) const override {
        const auto* p = std::find_if(std::begin(kParole), std::end(kParole), [&](const Parola& parola) {
            return std::strcmp(parola.contesto, contesto) == 0 && std::strcmp(parola.inglese, testo) == 0;
        });
        // A null text sends the question on to the next dictionary.
        return p == std::end(kParole) ? QString{} : QString::fromUtf8(p->italiano);
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

}  // namespace

void parla_italiano(QCoreApplication& applicazione) {
    QLocale::setDefault(QLocale{QLocale::Italian, QLocale::Italy});
    QCoreApplication::installTranslator(new Dizionario{&applicazione});
    // Asked before ours, since the last one installed is asked first.
    auto* di_qt = new QTranslator{&applicazione};
    if (di_qt->load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(di_qt);
}

}  // namespace sortimetra

#include "screens/lingua.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <iterator>
#include <string_view>

namespace sortimetra {

namespace {

struct Voce {
    std::string_view inglese;
    std::string_view italiano;
};

/// The toolkit's own words that this program can bring to the screen: dialogs of files and printers, buttons
/// of boxes, menus of fields, names of keys. In the order of their bytes.
constexpr Voce kVoci[] = {
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nLa cartella non c'è.\nControlla che il nome sia giusto."},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nIl file non c'è.\nControlla che il nome sia giusto."},
    {"%1 already exists.\nDo you want to overwrite it?", "%1 esiste già.\nVuoi sostituirlo?"},
    {"%1 already exists.\nDo you want to replace it?", "%1 esiste già.\nVuoi sostituirlo?"},
    {"%1 is a directory.\nPlease choose a different file name.", "%1 è una cartella.\nScegli un altro nome."},
    {"&Choose", "&Scegli"},
    {"&Copy", "&Copia"},
    {"&Delete", "&Elimina"},
    {"&Name:", "&Nome:"},
    {"&New Folder", "&Nuova cartella"},
    {"&No", "&No"},
    {"&Open", "&Apri"},
    {"&Options <<", "&Opzioni <<"},
    {"&Options >>", "&Opzioni >>"},
    {"&Paste", "&Incolla"},
    {"&Print", "Sta&mpa"},
    {"&Redo", "&Ripeti"},
    {"&Rename", "&Rinomina"},
    {"&Save", "&Salva"},
    {"&Select All", "&Seleziona tutto"},
    {"&Step up", "&Aumenta"},
    {"&Undo", "&Annulla"},
    {"&Yes", "&Sì"},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     "«%1» è protetto dalla scrittura.\nVuoi eliminarlo lo stesso?"},
    {"1 (1x1)", "1 (1x1)"},
    {"16 (4x4)", "16 (4x4)"},
    {"2 (2x1)", "2 (2x1)"},
    {"4 (2x2)", "4 (2x2)"},
    {"6 (2x3)", "6 (2x3)"},
    {"9 (3x3)", "9 (3x3)"},
    {"<qt>Do you want to overwrite it?</qt>", "<qt>Vuoi sostituirlo?</qt>"},
    {"Abort", "Interrompi"},
    {"All Files (*)", "Tutti i file (*)"},
    {"All Pages", "Tutte le pagine"},
    {"Alt+Left", "Alt+Left"},
    {"Alt+Right", "Alt+Right"},
    {"Alt+Up", "Alt+Up"},
    {"Apply", "Applica"},
    {"Are you sure you want to delete '%1'?", "Vuoi davvero eliminare «%1»?"},
    {"Back", "Indietro"},
    {"Bottom to Top, Left to Right", "Dal basso in alto, da sinistra a destra"},
    {"Bottom to Top, Right to Left", "Dal basso in alto, da destra a sinistra"},
    {"Cancel", "Annulla"},
    {"Change to detail view mode", "Passa ai dettagli"},
    {"Change to list view mode", "Passa all'elenco"},
    {"Cicero (CC)", "Cicero (CC)"},
    {"Close", "Chiudi"},
    {"Collate", "Fascicola"},
    {"Color", "Colore"},
    {"Color Mode", "Colori"},
    {"Computer", "Computer"},
    {"Copies", "Copie"},
    {"Copies:", "Copie:"},
    {"Could not delete directory.", "Non è stato possibile eliminare la cartella."},
    {"Create New Folder", "Crea una cartella"},
    {"Create a New Folder", "Crea una cartella"},
    {"Cu&t", "&Taglia"},
    {"Current Page", "Pagina corrente"},
    {"Custom", "Personalizzato"},
    {"Date Modified", "Modificato il"},
    {"Del", "Canc"},
    {"Delete", "Elimina"},
    {"Detail View", "Dettagli"},
    {"Didot (DD)", "Didot (DD)"},
    {"Directories", "Cartelle"},
    {"Directory:", "Cartella:"},
    {"Discard", "Non salvare"},
    {"Double Sided Printing", "Stampa fronte e retro"},
    {"Drive", "Unità"},
    {"End", "Fine"},
    {"Enter", "Invio"},
    {"Even Pages", "Pagine pari"},
    {"File %1 is not writable.\nPlease choose a different file name.",
     "Non si può scrivere nel file %1.\nScegli un altro nome."},
    {"File &name:", "&Nome del file:"},
    {"File exists", "Il file esiste già"},
    {"Files", "File"},
    {"Files of type:", "Tipo di file:"},
    {"Find Directory", "Trova la cartella"},
    {"Folder", "Cartella"},
    {"Forward", "Avanti"},
    {"Go back", "Torna indietro"},
    {"Go forward", "Vai avanti"},
    {"Go to the parent directory", "Vai alla cartella superiore"},
    {"Grayscale", "Scala di grigi"},
    {"Height:", "Altezza:"},
    {"Help", "Aiuto"},
    {"Hide Details...", "Nascondi i dettagli…"},
    {"Home", "Inizio"},
    {"Idle", "Pronta"},
    {"Ignore", "Ignora"},
    {"Inches (in)", "Pollici (in)"},
    {"Invalid Pages Definition", "Pagine non valide"},
    {"Invalid filename", "Nome non valido"},
    {"Landscape", "Orizzontale"},
    {"Left to Right, Bottom to Top", "Da sinistra a destra, dal basso in alto"},
    {"Left to Right, Top to Bottom", "Da sinistra a destra, dall'alto in basso"},
    {"List View", "Elenco"},
    {"List of places and bookmarks", "Elenco dei luoghi e dei segnalibri"},
    {"Local file", "File"},
    {"Location:", "Luogo:"},
    {"Long side binding", "Lato lungo"},
    {"Look in:", "Cerca in:"},
    {"Margins", "Margini"},
    {"Millimeters (mm)", "Millimetri (mm)"},
    {"My Computer", "Computer"},
    {"N&o to All", "N&o a tutti"},
    {"Name", "Nome"},
    {"New Folder", "Nuova cartella"},
    {"OK", "OK"},
    {"Odd Pages", "Pagine dispari"},
    {"Off", "No"},
    {"Open", "Apri"},
    {"Options", "Opzioni"},
    {"Orientation", "Orientamento"},
    {"Output &file:", "&File:"},
    {"Output Settings", "Impostazioni di stampa"},
    {"P&roperties", "&Proprietà"},
    {"Page Layout", "Disposizione"},
    {"Page Set:", "Pagine:"},
    {"Page Setup", "Imposta la pagina"},
    {"Page order:", "Ordine delle pagine:"},
    {"Page size:", "Formato:"},
    {"Pages", "Pagine"},
    {"Pages from", "Pagine da"},
    {"Pages per sheet:", "Pagine per foglio:"},
    {"Paper", "Carta"},
    {"Paper source:", "Alimentazione:"},
    {"Parent Directory", "Cartella superiore"},
    {"Paused", "In pausa"},
    {"PgDown", "Pag giù"},
    {"PgUp", "Pag su"},
    {"Pica (P̸)", "Pica (P̸)"},
    {"Points (pt)", "Punti (pt)"},
    {"Portrait", "Verticale"},
    {"Preview", "Anteprima"},
    {"Print", "Stampa"},
    {"Print To File ...", "Stampa su file…"},
    {"Print all", "Stampa tutto"},
    {"Print range", "Intervallo di stampa"},
    {"Print to File (PDF)", "Stampa su file (PDF)"},
    {"Print to File (Postscript)", "Stampa su file (PostScript)"},
    {"Printer", "Stampante"},
    {"Printing", "In stampa"},
    {"Recent Places", "Luoghi recenti"},
    {"Remove", "Togli"},
    {"Reset", "Ripristina"},
    {"Restore Defaults", "Valori iniziali"},
    {"Retry", "Riprova"},
    {"Return", "Invio"},
    {"Reverse", "Ordine inverso"},
    {"Reverse landscape", "Orizzontale capovolto"},
    {"Reverse portrait", "Verticale capovolto"},
    {"Right to Left, Bottom to Top", "Da destra a sinistra, dal basso in alto"},
    {"Right to Left, Top to Bottom", "Da destra a sinistra, dall'alto in basso"},
    {"Save", "Salva"},
    {"Save All", "Salva tutto"},
    {"Save As", "Salva con nome"},
    {"Scroll Left", "Scorri a sinistra"},
    {"Scroll Right", "Scorri a destra"},
    {"Select All", "Seleziona tutto"},
    {"Selection", "Selezione"},
    {"Shift", "Maiusc"},
    {"Short side binding", "Lato corto"},
    {"Show ", "Mostra "},
    {"Show &hidden files", "Mostra i file &nascosti"},
    {"Show Details...", "Mostra i dettagli…"},
    {"Sidebar", "Luoghi"},
    {"Size", "Dimensione"},
    {"Space", "Spazio"},
    {"Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a "
     "hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
     "Pagine o intervalli di pagine uniti da virgole; un intervallo è fatto di due numeri uniti da un "
     "trattino. Per esempio 3,5-7,9 stampa le pagine 3, 5, 6, 7 e 9."},
    {"Step &down", "&Diminuisci"},
    {"The 'From' value cannot be greater than the 'To' value.",
     "La prima pagina non può venire dopo l'ultima."},
    {"Top to Bottom, Left to Right", "Dall'alto in basso, da sinistra a destra"},
    {"Top to Bottom, Right to Left", "Dall'alto in basso, da destra a sinistra"},
    {"Type", "Tipo"},
    {"Type:", "Tipo:"},
    {"Width:", "Larghezza:"},
    {"Write PDF file", "Scrive un file PDF"},
    {"Yes to &All", "Sì a &tutti"},
    {"bottom margin", "margine inferiore"},
    {"left margin", "margine sinistro"},
    {"right margin", "margine destro"},
    {"to", "a"},
    {"top margin", "margine superiore"},
};

constexpr bool prima(const Voce& a, const Voce& b) {
    return a.inglese < b.inglese;
}
static_assert(std::is_sorted(std::begin(kVoci), std::end(kVoci), prima));

/// Paper sizes are names, but for these.
constexpr std::string_view kBusta = "Envelope ";

QString testo(std::string_view t) {
    return QString::fromUtf8(t.data(), static_cast<qsizetype>(t.size()));
}

class Dizionario final : public QTranslator {
  public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* contesto, const char* inglese, const char*,
                                    int) const override {
        // The program's own words are Italian already.
        if (contesto == nullptr || contesto[0] != 'Q' || inglese == nullptr) return {};
        const Voce cercata{.inglese = inglese, .italiano = {}};
        const auto* voce = std::lower_bound(std::begin(kVoci), std::end(kVoci), cercata, prima);
        if (voce != std::end(kVoci) && voce->inglese == cercata.inglese) return testo(voce->italiano);
        if (cercata.inglese.starts_with(kBusta))
            return QStringLiteral("Busta ") + testo(cercata.inglese.substr(kBusta.size()));
        return {};
    }
};

}  // namespace

void installa_dizionario(QCoreApplication& applicazione) {
    QCoreApplication::installTranslator(new Dizionario{&applicazione});
}

void parla_italiano(QCoreApplication& applicazione) {
    QLocale::setDefault(QLocale{QLocale::Italian, QLocale::Italy});
    // Qt's own translation, where the system has it, for words that nobody thought of.
    auto* dizionario = new QTranslator{&applicazione};
    if (dizionario->load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(dizionario);
    installa_dizionario(applicazione);
}

}  // namespace sortimetra

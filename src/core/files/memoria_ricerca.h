#pragma once

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// The small memory that brings the catalogue back to the last search the user looked at: `ric.ini` in the
/// program's folder, a text of sections and keys in Windows-1252 with CR LF, shared with older installations.
///
/// Nothing here fails: where the file cannot be read the answer is the one of a missing key, where it cannot
/// be written it stays as it was. Lines that this program does not know are kept. Several instances may write
/// at once: each change is made on the file as it then stands, under a lock, and replaces it whole.
///
/// A change never waits for another instance: while one holds the lock, changes are kept here, read back from
/// here, and written by the next change, by `riprova` or at the end, which alone waits.
class MemoriaRicerca {
  public:
    explicit MemoriaRicerca(const std::filesystem::path& percorso_programma)
        : file_(percorso_programma / "ric.ini") {}
    MemoriaRicerca(const MemoriaRicerca&) = delete;
    MemoriaRicerca& operator=(const MemoriaRicerca&) = delete;
    ~MemoriaRicerca() { completa(); }

    [[nodiscard]] const std::filesystem::path& file() const { return file_; }
    [[nodiscard]] bool esiste() const;

    /// `tipo` "tipo": the group last chosen (`index` of TipoRic, whatever `chiave`); "nome": `chiave` of
    /// NomeRIC, "0" to "9" for the name last highlighted in a group and "0t" to "9t" for its first visible
    /// row; any other word: `chiave` of a section `sezione`. UTF-8; "0" where the key is missing. A value
    /// ends where the 250 characters of its buffer, the closing NUL among them, are full.
    [[nodiscard]] std::string leggi_memoria(std::string_view tipo, std::string_view chiave) const;

    /// Writes the whole default file in place of whatever is there.
    void crea_memoria();
    /// The same, only where there is no file: of two instances that start together one writes it.
    void crea_se_manca();

    /// Group last chosen in the catalogue.
    void scrivi_gruppo(int indice);
    /// Name last highlighted in a group (UTF-8) and its first visible row.
    void scrivi_selezione(int gruppo, std::string_view nome, int prima_riga);

    /// Whether changes are still to be written.
    [[nodiscard]] bool in_sospeso() const { return da_creare_ || !sospese_.empty(); }
    /// Writes them if nobody holds the lock. True where none is left.
    bool riprova();
    /// Writes them, waiting for the lock up to three seconds; whoever holds it longer is stuck, and is not
    /// waited for.
    void completa();

  private:
    struct Scrittura {
        std::string_view sezione;
        std::string chiave;
        std::string valore;
    };
    void scrivi(std::initializer_list<Scrittura> scritture);
    /// What the file will hold, given what it holds; nothing where it would not hold anything.
    [[nodiscard]] std::optional<std::string> aggiornato(const std::optional<std::string>& prima) const;
    void scrivi_sospese();

    std::filesystem::path file_;
    std::vector<Scrittura> sospese_;
    bool da_creare_ = false;  ///< the default file is to be written if there is none
};

/// The skin in use: the whole number in `skn.dat` of the skin folder. Where the file is missing or empty it
/// is 1; whoever then puts that skin to use writes it. A number that is no skin is given back as it stands
/// (the caller loads none); nothing for a text that is no number.
[[nodiscard]] std::optional<int> leggi_skin(const std::filesystem::path& percorso_skin);

/// How long a write waits for another instance that is writing.
enum class Attesa : unsigned char { nessuna, breve };

/// Writes the index of the skin in use. False where another instance was writing and was not waited for; any
/// other failure is ignored.
bool scrivi_skin(const std::filesystem::path& percorso_skin, int indice, Attesa attesa = Attesa::breve);

}  // namespace sortimetra

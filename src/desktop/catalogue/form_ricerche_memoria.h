#pragma once

#include "files/memoria_ricerca.h"
#include "files/sessione.h"

#include <QObject>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QTimer;

namespace sortimetra {

/// What the catalogue remembers in the program's folder: group, row and skin. Each change is written at the
/// moment it is made; while another instance is writing it is kept, and written a moment later. Nobody waits
/// for that but the end of the program.
class MemoriaCatalogo final : public QObject {
    Q_OBJECT
  public:
    explicit MemoriaCatalogo(const Sessione& sessione);
    ~MemoriaCatalogo() override;

    /// Goes over to another folder; what is still to be written goes into the one before.
    void usa(const Sessione& sessione);
    void crea_se_manca();
    [[nodiscard]] std::string leggi(std::string_view tipo, std::string_view chiave) const;
    void scrivi_gruppo(int indice);
    void scrivi_selezione(int gruppo, std::string_view nome, int prima_riga);
    void scrivi_skin(const std::filesystem::path& percorso_skin, int indice);

  private:
    /// Tries again what is still to be written, and comes back if some is left.
    void riprova();

    std::unique_ptr<MemoriaRicerca> memoria_;
    std::vector<std::unique_ptr<MemoriaRicerca>> di_prima_;  ///< of other folders, with changes to write
    std::map<std::filesystem::path, int> skin_;              ///< skins to write
    QTimer* orologio_;
};

}  // namespace sortimetra

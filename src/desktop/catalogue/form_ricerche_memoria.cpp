#include "catalogue/form_ricerche_memoria.h"

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <utility>

namespace sortimetra {

namespace {

/// Another instance writes for a few milliseconds at most.
constexpr std::chrono::milliseconds kFraUnPoco{100};

}  // namespace

MemoriaCatalogo::MemoriaCatalogo(const Sessione& sessione)
    : memoria_{std::make_unique<MemoriaRicerca>(sessione.percorso_programma)}, orologio_{new QTimer{this}} {
    orologio_->setSingleShot(true);
    orologio_->setInterval(kFraUnPoco);
    connect(orologio_, &QTimer::timeout, this, &MemoriaCatalogo::riprova);
}

MemoriaCatalogo::~MemoriaCatalogo() {
    // The memories write what they kept as they go.
    for (const auto& [percorso, indice] : skin_) sortimetra::scrivi_skin(percorso, indice);
}

void MemoriaCatalogo::usa(const Sessione& sessione) {
    auto prima = std::exchange(memoria_, std::make_unique<MemoriaRicerca>(sessione.percorso_programma));
    if (prima->in_sospeso()) di_prima_.push_back(std::move(prima));
}

void MemoriaCatalogo::crea_se_manca() {
    memoria_->crea_se_manca();
    riprova();
}

std::string MemoriaCatalogo::leggi(std::string_view tipo, std::string_view chiave) const {
    return memoria_->leggi_memoria(tipo, chiave);
}

void MemoriaCatalogo::scrivi_gruppo(int indice) {
    memoria_->scrivi_gruppo(indice);
    if (memoria_->in_sospeso()) orologio_->start();
}

void MemoriaCatalogo::scrivi_selezione(int gruppo, std::string_view nome, int prima_riga) {
    memoria_->scrivi_selezione(gruppo, nome, prima_riga);
    if (memoria_->in_sospeso()) orologio_->start();
}

void MemoriaCatalogo::scrivi_skin(const std::filesystem::path& percorso_skin, int indice) {
    skin_[percorso_skin] = indice;
    riprova();
}

void MemoriaCatalogo::riprova() {
    std::erase_if(di_prima_, [](const auto& m) { return m->riprova(); });
    std::erase_if(skin_,
                  [](const auto& s) { return sortimetra::scrivi_skin(s.first, s.second, Attesa::nessuna); });
    if (!memoria_->riprova() || !di_prima_.empty() || !skin_.empty()) orologio_->start();
}

}  // namespace sortimetra

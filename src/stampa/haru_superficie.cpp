#include "haru_superficie.h"

#include "file_carattere.h"
#include "printing/fogli.h"
#include "qt_testi.h"
#include "text/utf8.h"
#include "tracciati_pdf.h"

#include <hpdf_doc.h>
#include <hpdf_objects.h>
#include <hpdf_pages.h>
#include <hpdf_streams.h>

#include <QByteArray>
#include <QFontDatabase>
#include <QPainterPath>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <numbers>

namespace sortimetra {

namespace {

constexpr const char* kCodifica = "WinAnsiEncoding";
/// A letter's place is mended where readers would take it for as far away as this, in thousandths of the
/// font's size: their widths are whole ones.
constexpr double kScarto = 4;

std::unexpected<ErroreDisegno> guasto() {
    return std::unexpected(ErroreDisegno{kErroreStampante, "Il documento PDF non si può comporre"});
}

void aggiungi_intero(std::string& contenuto, long long numero) {
    std::array<char, 24> cifre{};
    contenuto.append(cifre.data(), std::to_chars(cifre.data(), cifre.data() + cifre.size(), numero).ptr);
}

/// Whole units: they keep the file short, and a unit is less than a fiftieth of a millimetre.
long long intere(double unita) {
    return std::isfinite(unita) ? std::llround(std::clamp(unita, -1e8, 1e8)) : 0;
}

HPDF_Date adesso() {
    const std::time_t ora = std::time(nullptr);
    std::tm t{};
    localtime_r(&ora, &t);
    const long minuti = t.tm_gmtoff / 60;
    return {t.tm_year + 1900,
            t.tm_mon + 1,
            t.tm_mday,
            t.tm_hour,
            t.tm_min,
            t.tm_sec,
            minuti < 0 ? '-' : '+',
            static_cast<HPDF_INT>(std::abs(minuti) / 60),
            static_cast<HPDF_INT>(std::abs(minuti) % 60)};
}

}  // namespace

SuperficieHaru::SuperficieHaru(const std::string& titolo, const QPageLayout& formato)
    : documento_{HPDF_New(nullptr, nullptr), HPDF_Free}, formato_{formato} {
    leggi_foglio();
    const QSizeF misure = formato_.pageSize().size(QPageSize::Millimeter);
    lavoro_.foglio = codice_foglio({misure.width(), misure.height()});
    lavoro_.orientamento = formato_.orientation() == QPageLayout::Landscape ? Orientamento::orizzontale
                                                                            : Orientamento::verticale;
    HPDF_Doc pdf = documento_.get();
    if (pdf == nullptr) return;
    HPDF_SetCompressionMode(pdf, HPDF_COMP_ALL);
    HPDF_UseUTFEncodings(pdf);
    HPDF_SetCurrentEncoder(pdf, "UTF-8");
    // Through Qt's texts, which hold no broken letters.
    HPDF_SetInfoAttr(pdf, HPDF_INFO_TITLE, testo_qt(titolo).toUtf8().constData());
    HPDF_SetInfoAttr(pdf, HPDF_INFO_CREATOR, "Sortimetra");
    HPDF_SetInfoDateAttr(pdf, HPDF_INFO_CREATION_DATE, adesso());
    HPDF_ResetError(pdf);  // a title that it does not take is no reason for no pages
    if (HPDF_Encoder codici = HPDF_GetEncoder(pdf, kCodifica); codici != nullptr)
        for (int c = 0x20; c <= 0xFF; ++c)
            if (const auto lettera = HPDF_Encoder_GetUnicode(codici, static_cast<HPDF_UINT16>(c));
                lettera >= 0x20)
                codici_.try_emplace(lettera, static_cast<unsigned char>(c));
}

void SuperficieHaru::leggi_foglio() {
    const QRectF intero = formato_.fullRect(QPageLayout::Millimeter);
    foglio_ = {intero.width(), intero.height(), 0, 0};
}

void SuperficieHaru::imposta(const Lavoro& lavoro) {
    const Lavoro prima = std::exchange(lavoro_, lavoro);
    if (lavoro.foglio != prima.foglio)
        if (const auto misure = misure_foglio(lavoro.foglio))
            formato_.setPageSize(QPageSize{QSizeF{misure->larghezza, misure->altezza}, QPageSize::Millimeter,
                                           QString{}, QPageSize::FuzzyMatch});
    if (lavoro.orientamento != prima.orientamento)
        formato_.setOrientation(lavoro.orientamento == Orientamento::orizzontale ? QPageLayout::Landscape
                                                                                 : QPageLayout::Portrait);
    if (foglio_pdf_ == nullptr) leggi_foglio();
}

int SuperficieHaru::n_caratteri() const {
    return static_cast<int>(QFontDatabase::families().size());
}

std::string SuperficieHaru::nome_carattere(int i) const {
    const QStringList nomi = QFontDatabase::families();
    return i >= 0 && i < nomi.size() ? nomi[i].toStdString() : std::string{};
}

double SuperficieHaru::larghezza(std::string_view testo) {
    return CaratteriQt::larghezza(caratteri_.stile(stato.carattere), testo) / kUnita;
}

double SuperficieHaru::altezza(std::string_view) {
    return caratteri_.stile(stato.carattere).altezza / kUnita;
}

std::unexpected<ErroreDisegno> SuperficieHaru::oltre(const char* cosa) {
    oltre_ = true;
    return std::unexpected(ErroreDisegno{kErroreStampante, cosa});
}

// ---- pages ----

Esito SuperficieHaru::comincia() {
    if (documento_ == nullptr || HPDF_GetError(documento_.get()) != HPDF_OK) return guasto();
    if (foglio_pdf_ != nullptr) return {};
    foglio_pdf_ = HPDF_AddPage(documento_.get());
    if (foglio_pdf_ == nullptr) return guasto();
    const QRect punti = formato_.fullRectPoints();
    HPDF_Page_SetWidth(foglio_pdf_, static_cast<HPDF_REAL>(punti.width()));
    HPDF_Page_SetHeight(foglio_pdf_, static_cast<HPDF_REAL>(punti.height()));
    messo_ = {};
    // From here on lengths are units and y points down.
    contenuto_ = "0.05 0 0 -0.05 0 ";
    aggiungi_intero(contenuto_, punti.height());
    contenuto_ += " cm\n";
    return {};
}

Esito SuperficieHaru::versa_pagina() {
    chiudi_testi();
    auto* proprieta = static_cast<HPDF_PageAttr>(foglio_pdf_->attr);
    if (HPDF_Stream_Write(proprieta->stream, reinterpret_cast<const HPDF_BYTE*>(contenuto_.data()),
                          static_cast<HPDF_UINT>(contenuto_.size())) != HPDF_OK)
        return guasto();
    foglio_pdf_ = nullptr;
    return {};
}

Esito SuperficieHaru::nuova_pagina() {
    if (const auto inizio = comincia(); !inizio) return inizio;  // a first page may stay empty
    if (const auto esito = versa_pagina(); !esito) return esito;
    ++pagina_;
    leggi_foglio();
    return comincia();
}

Esito SuperficieHaru::fine() {
    if (const auto inizio = comincia(); !inizio) return inizio;  // a document has at least one page
    return versa_pagina();
}

std::expected<std::string, ErroreDisegno> SuperficieHaru::byte() {
    if (documento_ == nullptr || HPDF_SaveToStream(documento_.get()) != HPDF_OK) return guasto();
    std::string tutti(HPDF_GetStreamSize(documento_.get()), '\0');
    auto quanti = static_cast<HPDF_UINT32>(tutti.size());
    HPDF_ResetStream(documento_.get());
    HPDF_ReadFromStream(documento_.get(), reinterpret_cast<HPDF_BYTE*>(tutti.data()), &quanti);
    if (quanti != tutti.size()) return guasto();
    return tutti;
}

// ---- texts ----

SuperficieHaru::Incluso& SuperficieHaru::includi(CaratteriQt::Stile& stile) {
    Incluso*& incluso = per_stile_[&stile];
    if (incluso != nullptr) return *incluso;
    const auto file = file_carattere(stile);
    const auto [posto, nuovo] = inclusi_.try_emplace(file.value_or(""));
    incluso = &posto->second;
    if (!nuovo) return *incluso;
    incluso->larghezze.fill(-1);
    if (!file) return *incluso;
    const char* nome = HPDF_LoadTTFontFromFile(documento_.get(), file->c_str(), HPDF_TRUE);
    if (nome != nullptr) incluso->font = HPDF_GetFont(documento_.get(), nome, kCodifica);
    HPDF_ResetError(documento_.get());
    return *incluso;
}

bool SuperficieHaru::codifica(CaratteriQt::Stile& stile, Incluso& incluso, std::string_view testo,
                              double& larghezza) {
    larghezza = 0;
    double scarto = 0;
    bool pezzi = false;
    mostrato_ = "(";
    const double millesimi = 1000.0 / stile.font.pixelSize();
    while (!testo.empty()) {
        const char32_t lettera = prendi_lettera(testo);
        const auto codice = codici_.find(lettera);
        const CaratteriQt::Glifo& glifo = CaratteriQt::glifo(stile, lettera);
        if (codice == codici_.end() || glifo.indice == 0) return false;
        // Asking also tells the library that the file needs the letter.
        int& larga = incluso.larghezze[codice->second];
        if (larga < 0) larga = static_cast<int>(HPDF_Font_TextWidth(incluso.font, &codice->second, 1).width);
        if (std::abs(scarto) >= kScarto) {
            const auto intero = std::lround(scarto);
            mostrato_ += ')';
            aggiungi_intero(mostrato_, -intero);
            mostrato_ += '(';
            scarto -= static_cast<double>(intero);
            pezzi = true;
        }
        const char c = static_cast<char>(codice->second);
        if (c == '(' || c == ')' || c == '\\') mostrato_ += '\\';
        mostrato_ += c;
        larghezza += glifo.avanzamento;
        scarto += glifo.avanzamento * millesimi - larga;
    }
    mostrato_ += pezzi ? ")]TJ\n" : ")Tj\n";
    if (pezzi) mostrato_.insert(mostrato_.begin(), '[');
    return true;
}

void SuperficieHaru::apri_testo(CaratteriQt::Stile& stile, Incluso& incluso, long long x, long long y) {
    if (messo_.colore != stato.colore) {
        aggiungi_colore(contenuto_, colore_qt(stato.colore), "rg");
        messo_.colore = stato.colore;
    }
    const bool primo = !std::exchange(messo_.testo, true);
    if (primo) contenuto_ += "BT\n";
    if (messo_.carattere != &stile) {
        contenuto_ += '/';
        contenuto_ += HPDF_Page_GetLocalFontName(foglio_pdf_, incluso.font);
        contenuto_ += ' ';
        aggiungi_intero(contenuto_, stile.font.pixelSize());
        contenuto_ += " Tf\n";
        messo_.carattere = &stile;
    }
    if (primo) contenuto_ += "1 0 0 -1 ";
    aggiungi_intero(contenuto_, primo ? x : x - messo_.x);
    contenuto_ += ' ';
    aggiungi_intero(contenuto_, primo ? y : messo_.y - y);
    contenuto_ += primo ? " Tm" : " Td";
    messo_.x = x;
    messo_.y = y;
}

void SuperficieHaru::chiudi_testi() {
    if (std::exchange(messo_.testo, false)) contenuto_ += "ET\n";
}

Esito SuperficieHaru::scrivi(std::string_view testo) {
    if (const auto inizio = comincia(); !inizio) return inizio;
    CaratteriQt::Stile& stile = caratteri_.stile(stato.carattere);
    if (stato.carattere.sottolineato) return oltre("testo sottolineato");
    Incluso& incluso = includi(stile);
    double larga = 0;
    if (incluso.font == nullptr || !codifica(stile, incluso, testo, larga))
        return oltre("carattere fuori dal comune");
    apri_testo(stile, incluso, intere(stato.x * kUnita), intere(stato.y * kUnita + stile.ascendente));
    contenuto_ += mostrato_;
    stato.x += larga / kUnita;
    return {};
}

// ---- outlines ----

Esito SuperficieHaru::traccia(const QPainterPath& percorso) {
    if (const auto inizio = comincia(); !inizio) return inizio;
    constexpr std::array kStili{Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    const Qt::PenStyle tratto = stato.stile >= 0 && static_cast<std::size_t>(stato.stile) < kStili.size()
                                    ? kStili[static_cast<std::size_t>(stato.stile)]
                                    : Qt::SolidLine;
    if (tratto == Qt::NoPen) return {};
    chiudi_testi();
    std::string penna;
    aggiungi_penna(penna, QPen{colore_qt(stato.colore), std::max(stato.spessore, 1) * kPunto * kUnita, tratto,
                               Qt::FlatCap, Qt::MiterJoin});
    if (messo_.penna != penna) {
        contenuto_ += penna;
        messo_.penna = std::move(penna);
    }
    aggiungi_percorso(contenuto_, percorso);
    contenuto_ += "S\n";
    return {};
}

Esito SuperficieHaru::linea(double x1, double y1, double x2, double y2) {
    QPainterPath percorso{QPointF{x1 * kUnita, y1 * kUnita}};
    percorso.lineTo(x2 * kUnita, y2 * kUnita);
    return traccia(percorso);
}

Esito SuperficieHaru::rettangolo(double x1, double y1, double x2, double y2) {
    QPainterPath percorso;
    percorso.addRect(QRectF{QPointF{x1 * kUnita, y1 * kUnita}, QPointF{x2 * kUnita, y2 * kUnita}});
    return traccia(percorso);
}

Esito SuperficieHaru::arco(double centro_x, double centro_y, double raggio, double da, double a) {
    const double r = raggio * kUnita;
    const QRectF intorno{centro_x * kUnita - r, centro_y * kUnita - r, 2 * r, 2 * r};
    constexpr double kGradi = 180 / std::numbers::pi;
    QPainterPath percorso;
    percorso.arcMoveTo(intorno, da * kGradi);
    percorso.arcTo(intorno, da * kGradi, (a - da) * kGradi);
    return traccia(percorso);
}

// ---- pictures ----

QSvgRenderer* SuperficieHaru::carica(const Immagine& immagine) {
    const auto [posto, nuova] = immagini_.try_emplace(immagine.dati.data());
    Disegno& disegno = posto->second;
    if (nuova && immagine.dati.substr(0, 1024).find("<svg") != std::string_view::npos)
        disegno.svg = std::make_unique<QSvgRenderer>(
            QByteArray::fromRawData(immagine.dati.data(), static_cast<qsizetype>(immagine.dati.size())));
    return disegno.svg != nullptr && disegno.svg->isValid() ? disegno.svg.get() : nullptr;
}

std::expected<Dimensioni, ErroreDisegno> SuperficieHaru::dimensioni(const Immagine& immagine) {
    const QSvgRenderer* svg = carica(immagine);
    if (svg == nullptr) return oltre("immagine");
    const QSize punti = svg->defaultSize();
    return Dimensioni{punti.width() * kPollice / 96, punti.height() * kPollice / 96};
}

/// The picture as a part of the document that pages refer to; null where it cannot be one.
HPDF_Dict SuperficieHaru::modulo(const Immagine& immagine) {
    QSvgRenderer* svg = carica(immagine);
    Disegno& disegno = immagini_[immagine.dati.data()];
    if (svg == nullptr || std::exchange(disegno.provato, true)) return disegno.modulo;
    const auto contenuto = tracciati(*svg);
    if (!contenuto) return nullptr;
    HPDF_Doc pdf = documento_.get();
    HPDF_Dict parte = HPDF_DictStream_New(pdf->mmgr, pdf->xref);
    if (parte == nullptr) return nullptr;
    parte->header.obj_class |= HPDF_OSUBCLASS_XOBJECT;
    parte->filter = HPDF_STREAM_FILTER_FLATE_DECODE;
    HPDF_Dict_AddName(parte, "Type", "XObject");
    HPDF_Dict_AddName(parte, "Subtype", "Form");
    HPDF_Dict_Add(parte, "BBox", HPDF_Box_Array_New(pdf->mmgr, HPDF_Box{0, 0, 1, 1}));
    if (HPDF_Stream_Write(parte->stream, reinterpret_cast<const HPDF_BYTE*>(contenuto->data()),
                          static_cast<HPDF_UINT>(contenuto->size())) != HPDF_OK)
        return nullptr;
    disegno.modulo = parte;
    return parte;
}

Esito SuperficieHaru::disegna(const Immagine& immagine, double x, double y, Dimensioni misure) {
    if (const auto inizio = comincia(); !inizio) return inizio;
    HPDF_Dict parte = modulo(immagine);
    if (parte == nullptr) return oltre("immagine");
    chiudi_testi();
    contenuto_ += "q ";
    aggiungi_numero(contenuto_, misure.larghezza * kUnita);
    contenuto_ += " 0 0 ";
    aggiungi_numero(contenuto_, misure.altezza * kUnita);
    for (const double posto : {x, y}) {
        contenuto_ += ' ';
        aggiungi_numero(contenuto_, posto * kUnita);
    }
    contenuto_ += " cm /";
    contenuto_ += HPDF_Page_GetXObjectName(foglio_pdf_, parte);
    contenuto_ += " Do Q\n";
    return {};
}

}  // namespace sortimetra

#include "lunghette/tavola_lunghetta.h"

#include "screens/tema.h"

#include <QPainter>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {

constexpr int kPerRiga = 5;
constexpr int kRighe = static_cast<int>(kCaselle) / kPerRiga;
constexpr int kSpazio = 3 * kPasso;
constexpr int kLatoMinimo = 11 * kPasso;
constexpr int kLatoMassimo = 22 * kPasso;

/// How much larger the number in a slot is than the text of the window, by the slot's side.
constexpr double kNumeroNelLato = 0.34;
constexpr double kPassoNelLato = 0.16;

QString due_cifre(const QString& numero) {
    return numero.size() == 1 ? QStringLiteral("0") + numero : numero;
}

/// "12 (246)", which no line breaks.
QString detto(const PassoLunghetta& passo) {
    return QStringLiteral("%1\u00A0(%2)").arg(passo.entrato).arg(passo.lunghetta.punteggio.value_or(0));
}

QString numeri_di(const Lunghetta& lunghetta) {
    QStringList numeri;
    for (const int n : lunghetta.caselle)
        if (n != kCasellaVuota) numeri << QString::number(n);
    return numeri.join(QStringLiteral(" - "));
}

/// How the lunghetta grew: what it began with, then each number and the score that it left.
QString storia(const std::vector<PassoLunghetta>& passi) {
    if (passi.empty()) return {};
    QStringList parti;
    for (const PassoLunghetta& p : passi)
        if (p.entrato != 0) parti << detto(p);
    const Lunghetta& seme = passi.front().lunghetta;
    QString inizio =
        passi.front().entrato == 0 && seme.lunghezza > 0
            ? TavolaLunghetta::tr("Dai numeri %1 (%2)").arg(numeri_di(seme)).arg(seme.punteggio.value_or(0))
            : QString{};
    if (parti.isEmpty()) return inizio;
    const QString poi = parti.join(QStringLiteral("  ·  "));
    return inizio.isEmpty() ? poi : TavolaLunghetta::tr("%1, poi  %2").arg(inizio, poi);
}

}  // namespace

CasellaLunghetta::CasellaLunghetta(QWidget* padre) : QLabel{padre} {
    setAlignment(Qt::AlignCenter);
}

void CasellaLunghetta::scrivi(const QString& numero, Aspetto aspetto, int passo) {
    if (text() == numero && aspetto_ == aspetto && passo_ == passo) return;
    setText(numero);
    aspetto_ = aspetto;
    passo_ = passo;
    setToolTip(aspetto == Aspetto::vuota  ? QString{}
               : aspetto == Aspetto::seme ? tr("Uno dei numeri di partenza")
                                          : tr("Entrato al passo %1").arg(passo));
    update();
}

void CasellaLunghetta::paintEvent(QPaintEvent* /*evento*/) {
    const Skin& s = skin_in_uso();
    QPainter p{this};
    p.setRenderHint(QPainter::Antialiasing);
    const bool vuota = aspetto_ == Aspetto::vuota;
    const bool ultima = aspetto_ == Aspetto::ultima;
    const bool seme = aspetto_ == Aspetto::seme;
    const double penna = seme ? 2 : 1;
    p.setPen(QPen{QColor::fromRgb(vuota ? s.linea : seme ? s.accento : s.bordo), penna});
    p.setBrush(QColor::fromRgb(ultima ? s.trovato : vuota ? s.finestra : s.superficie));
    const double lato = std::min(width(), height());
    p.drawRoundedRect(QRectF{rect()}.adjusted(penna, penna, -penna, -penna), lato / 5, lato / 5);
    if (vuota || text().isEmpty()) return;
    const QRgb inchiostro = ultima ? s.testo_trovato : s.testo;
    QFont carattere = carattere_tabellare(font());
    carattere.setPixelSize(static_cast<int>(lato * kNumeroNelLato));
    carattere.setBold(true);
    p.setFont(carattere);
    p.setPen(QColor::fromRgb(inchiostro));
    p.drawText(rect(), Qt::AlignCenter, due_cifre(text()));
    if (passo_ == 0) return;
    carattere.setPixelSize(std::max(9, static_cast<int>(lato * kPassoNelLato)));
    carattere.setBold(false);
    p.setFont(carattere);
    p.setPen(QColor::fromRgb(ultima ? s.testo_trovato : s.testo_quieto));
    p.drawText(rect().adjusted(0, 0, -2 * kPasso, -kPasso), Qt::AlignRight | Qt::AlignBottom,
               QStringLiteral("%1°").arg(passo_));
}

/// Where the slots lie: as large as the room lets them be, never larger than looks well.
class TavolaLunghetta::Quadro final : public QWidget {
  public:
    explicit Quadro(std::array<CasellaLunghetta*, kCaselle>& caselle, QWidget* padre)
        : QWidget{padre}, caselle_{caselle} {
        setMinimumSize(kPerRiga * kLatoMinimo + (kPerRiga - 1) * kSpazio,
                       kRighe * kLatoMinimo + (kRighe - 1) * kSpazio);
        setMaximumHeight(kRighe * kLatoMassimo + (kRighe - 1) * kSpazio);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }
    [[nodiscard]] QSize sizeHint() const override {
        return maximumSize().boundedTo({10000, maximumHeight()});
    }

  protected:
    void resizeEvent(QResizeEvent* evento) override {
        QWidget::resizeEvent(evento);
        const int largo = (width() - (kPerRiga - 1) * kSpazio) / kPerRiga;
        const int alto = (height() - (kRighe - 1) * kSpazio) / kRighe;
        const int lato = std::clamp(std::min(largo, alto), kLatoMinimo, kLatoMassimo);
        for (int i = 0; i < static_cast<int>(kCaselle); ++i)
            caselle_[static_cast<std::size_t>(i)]->setGeometry(i % kPerRiga * (lato + kSpazio),
                                                               i / kPerRiga * (lato + kSpazio), lato, lato);
    }

  private:
    std::array<CasellaLunghetta*, kCaselle>& caselle_;
};

TavolaLunghetta::TavolaLunghetta(QWidget* padre)
    : QFrame{padre},
      nome_punteggio_{new QLabel{this}},
      punteggio_{new QLabel{this}},
      storia_{new QLabel{this}} {
    nome_punteggio_->setObjectName(QStringLiteral("Label8"));
    assegna_ruolo(nome_punteggio_, "sezione");
    punteggio_->setObjectName(QStringLiteral("lblRit_freq"));
    punteggio_->setAccessibleName(tr("Punteggio"));
    QFont grande = carattere_tabellare(punteggio_->font());
    grande.setPointSizeF(grande.pointSizeF() * 2);
    grande.setBold(true);
    punteggio_->setFont(grande);
    // As high without a score as with one: the board keeps its place.
    punteggio_->setMinimumHeight(QFontMetrics{grande}.height());
    storia_->setObjectName(QStringLiteral("lblpassi"));
    storia_->setWordWrap(true);
    storia_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    storia_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    assegna_ruolo(storia_, "quieto");

    auto* quadro = new Quadro{caselle_, this};
    for (std::size_t i = 0; i < kCaselle; ++i) {
        auto* c = new CasellaLunghetta{quadro};
        c->setObjectName(QStringLiteral("lblnum_%1").arg(i));
        c->setAccessibleName(tr("Numero %1 della lunghetta").arg(i + 1));
        caselle_[i] = c;
    }
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(2 * kPasso, 2 * kPasso, 2 * kPasso, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(nome_punteggio_);
    colonna->addWidget(punteggio_);
    colonna->addWidget(quadro, 12);
    colonna->addWidget(storia_);
    colonna->addStretch(1);
}

void TavolaLunghetta::nomina_punteggio(const QString& nome) {
    nome_punteggio_->setText(nome);
}

void TavolaLunghetta::svuota(const QString& frase) {
    mostra_passo({}, {});
    storia_->setText(frase);
}

void TavolaLunghetta::mostra(const Lunghetta& lunghetta, const std::vector<PassoLunghetta>& passi) {
    mostra_passo(lunghetta, passi);
    storia_->setText(storia(passi));
}

void TavolaLunghetta::mostra_passo(const Lunghetta& lunghetta, const std::vector<PassoLunghetta>& passi) {
    int ultimo = 0;
    const auto passo_di = [&](int n) {
        int ordinale = 0;
        for (const PassoLunghetta& p : passi) {
            if (p.entrato == 0) continue;
            ++ordinale;
            if (p.entrato == n) return ordinale;
        }
        return 0;
    };
    for (const PassoLunghetta& p : passi) ultimo = p.entrato;
    // Without a growth no number is one that it began with.
    const bool cresciuta = !passi.empty() && passi.front().lunghetta.lunghezza > 0;
    for (std::size_t i = 0; i < kCaselle; ++i) {
        const int n = lunghetta.caselle[i];
        if (n == kCasellaVuota) {
            caselle_[i]->scrivi({}, CasellaLunghetta::Aspetto::vuota, 0);
            continue;
        }
        const int passo = passo_di(n);
        caselle_[i]->scrivi(QString::number(n),
                            passo == 0 && cresciuta      ? CasellaLunghetta::Aspetto::seme
                            : ultimo != 0 && n == ultimo ? CasellaLunghetta::Aspetto::ultima
                                                         : CasellaLunghetta::Aspetto::entrata,
                            passo);
    }
    punteggio_->setText(lunghetta.punteggio ? QString::number(*lunghetta.punteggio) : QString{});
}

}  // namespace sortimetra

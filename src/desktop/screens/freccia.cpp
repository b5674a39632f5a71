#include "screens/freccia.h"

#include "screens/tema.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <utility>

namespace sortimetra {

namespace {

/// Milliseconds between two ticks: five passes of five arrows last a second and a half. It is all that a
/// screen still paints once it is shown, so a tick paints the two arrows that change and nothing else.
constexpr int kScatto = 60;
constexpr int kPassate = 5;
constexpr int kLato = 3 * kPasso;

}  // namespace

FrecciaAnimata::FrecciaAnimata(QWidget* padre) : QFrame{padre}, orologio_{new QTimer{this}} {
    setObjectName(QStringLiteral("FrameFreccia"));
    orologio_->setObjectName(QStringLiteral("Timer1"));
    orologio_->setInterval(kScatto);
    connect(orologio_, &QTimer::timeout, this, &FrecciaAnimata::scatto);
    auto* riga = new QHBoxLayout{this};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(0);
    for (std::size_t i = 0; i < immagini_.size(); ++i) {
        immagini_[i] = new QLabel{this};
        immagini_[i]->setObjectName(QStringLiteral("Image1_%1").arg(i));
        immagini_[i]->setFixedSize(kLato, kLato);
        riga->addWidget(immagini_[i]);
    }
    ridisegna();
}

void FrecciaAnimata::avvia() {
    scatti_ = 0;
    orologio_->stop();
    const bool animata = animata_ && style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this) != 0;
    accesa_ = animata ? 0 : -1;
    ridisegna();
    if (animata) orologio_->start();
}

void FrecciaAnimata::scatto() {
    ++scatti_;
    if (scatti_ >= kPassate * static_cast<int>(immagini_.size())) {
        orologio_->stop();
        return;
    }
    accendi(scatti_ % static_cast<int>(immagini_.size()));
}

void FrecciaAnimata::accendi(int quale) {
    const int spenta = std::exchange(accesa_, quale);
    for (const int i : {spenta, quale})
        if (i >= 0) mostra(static_cast<std::size_t>(i));
}

void FrecciaAnimata::ridisegna() {
    const auto figura = [this](TintaIcona tinta, QIcon::Mode modo) {
        return icona(QStringLiteral("destra"), tinta).pixmap(QSize{kLato, kLato}, devicePixelRatioF(), modo);
    };
    spenta_ = figura(TintaIcona::quieto, QIcon::Disabled);
    accesa_figura_ = figura(TintaIcona::accento, QIcon::Normal);
    for (std::size_t i = 0; i < immagini_.size(); ++i) mostra(i);
}

void FrecciaAnimata::mostra(std::size_t quale) {
    immagini_.at(quale)->setPixmap(static_cast<int>(quale) == accesa_ ? accesa_figura_ : spenta_);
}

}  // namespace sortimetra

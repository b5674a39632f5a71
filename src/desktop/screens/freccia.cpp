#include "screens/freccia.h"

#include "screens/tema.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

namespace sortimetra {

namespace {

/// Milliseconds between two ticks: five passes of five arrows last a second and a half.
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
    accendi(-1);
}

void FrecciaAnimata::avvia() {
    scatti_ = 0;
    orologio_->stop();
    if (!animata_ || style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this) == 0) {
        accendi(-1);
        return;
    }
    accendi(0);
    orologio_->start();
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
    accesa_ = quale;
    for (std::size_t i = 0; i < immagini_.size(); ++i) {
        const bool accesa = static_cast<int>(i) == quale;
        const QIcon figura =
            icona(QStringLiteral("destra"), accesa ? TintaIcona::accento : TintaIcona::quieto);
        immagini_[i]->setPixmap(figura.pixmap(QSize{kLato, kLato}, devicePixelRatioF(),
                                              accesa ? QIcon::Normal : QIcon::Disabled));
    }
}

}  // namespace sortimetra

#include "catalogue/form_ricerche_skin.h"

#include "screens/tema.h"

#include <QActionGroup>
#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

namespace sortimetra {

namespace {

/// Three stripes of a skin, for its entry in the menu.
QIcon campione(const Skin& s) {
    constexpr int kLato = 32;
    QPixmap immagine{kLato, kLato};
    immagine.fill(Qt::transparent);
    QPainter p{&immagine};
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QColor::fromRgb(s.bordo));
    p.setBrush(QColor::fromRgb(s.superficie));
    p.drawRoundedRect(QRectF{1, 1, kLato - 2, kLato - 2}, 6, 6);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor::fromRgb(s.accento));
    p.drawRoundedRect(QRectF{6, 6, kLato - 12, 6}, 2, 2);
    p.setBrush(QColor::fromRgb(s.selezione));
    p.drawRoundedRect(QRectF{6, 14, kLato - 12, 5}, 2, 2);
    p.setBrush(QColor::fromRgb(s.trovato));
    p.drawRoundedRect(QRectF{6, 21, (kLato - 12) / 2.0, 5}, 2, 2);
    return QIcon{immagine};
}

}  // namespace

PulsanteSkin::PulsanteSkin(QWidget* genitore) : QToolButton{genitore}, menu_{new QMenu{this}} {
    setObjectName(QStringLiteral("cmdSkin"));
    setIcon(icona(QStringLiteral("skin")));
    setIconSize(QSize{20, 20});
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setPopupMode(QToolButton::InstantPopup);
    setFocusPolicy(Qt::StrongFocus);
    setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    setToolTip(tr("Cambia i colori del programma"));
    setMenu(menu_);
    auto* gruppo = new QActionGroup{menu_};
    for (int i = 1; i <= kNumeroSkin; ++i) {
        const Skin& s = skin()[static_cast<std::size_t>(i - 1)];
        auto* voce = menu_->addAction(campione(s), QString::fromUtf8(s.nome));
        voce->setToolTip(QString::fromUtf8(s.carattere));
        voce->setCheckable(true);
        voce->setData(i);
        gruppo->addAction(voce);
    }
    menu_->setToolTipsVisible(true);
    connect(gruppo, &QActionGroup::triggered, this,
            [this](QAction* voce) { emit scelta(voce->data().toInt()); });
}

void PulsanteSkin::segna(int indice) {
    setText(QString::fromUtf8(skin_in_uso().nome));
    setAccessibleName(tr("Aspetto: %1").arg(text()));
    for (QAction* voce : menu_->actions()) {
        const bool in_uso = voce->data().toInt() == indice;
        voce->setChecked(in_uso);
        QFont carattere = menu_->font();
        carattere.setBold(in_uso);
        voce->setFont(carattere);
    }
}

}  // namespace sortimetra

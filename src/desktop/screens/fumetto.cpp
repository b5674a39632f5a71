#include "screens/fumetto.h"

#include "qt_testi.h"
#include "screens/manuale.h"
#include "screens/tema.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {
constexpr int kLarghezza = 90 * kPasso;
}

QString testo_spiegazione(const Spiegazione& spiegazione) {
    QString t =
        QStringLiteral("<b>%1</b><br>%2").arg(testo_qt(spiegazione.nome), testo_qt(spiegazione.frasi));
    if (!spiegazione.esempio.empty())
        t += QStringLiteral("<br><i>%1</i>").arg(testo_qt(spiegazione.esempio).toHtmlEscaped());
    return t;
}

Fumetto::Fumetto(QWidget* padre, const Spiegazione& spiegazione, const QString& capitolo)
    : QFrame{padre, Qt::Popup} {
    setObjectName(QStringLiteral("Fumetto"));
    setAttribute(Qt::WA_DeleteOnClose);
    assegna_ruolo(this, "pannello");
    auto* testo =
        new QLabel{testo_spiegazione(spiegazione) +
                       QStringLiteral("<p><a href=\"manuale\">%1</a></p>").arg(tr("Apri il manuale")),
                   this};
    testo->setObjectName(QStringLiteral("lblfumetto"));
    testo->setWordWrap(true);
    testo->setFixedWidth(kLarghezza);
    testo->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setAccessibleName(testo_qt(spiegazione.nome));
    setAccessibleDescription(testo_qt(spiegazione.frasi) + QLatin1Char{' '} + testo_qt(spiegazione.esempio));
    connect(testo, &QLabel::linkActivated, this, [this, padre, capitolo] {
        close();
        apri_manuale(padre, capitolo);
    });
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(3 * kPasso, 2 * kPasso, 3 * kPasso, 2 * kPasso);
    colonna->addWidget(testo);
    testo->setFocus();
}

void Fumetto::mostra_a(const QPoint& angolo) {
    adjustSize();
    const QRect spazio = screen()->availableGeometry();
    move(std::clamp(angolo.x(), spazio.left(), std::max(spazio.left(), spazio.right() - width())),
         std::clamp(angolo.y(), spazio.top(), std::max(spazio.top(), spazio.bottom() - height())));
    show();
}

void Fumetto::keyPressEvent(QKeyEvent* evento) {
    // Enter goes to the label, which opens its link.
    if (evento->key() != Qt::Key_Tab) close();
}

}  // namespace sortimetra

#include "positional/form_posizione.h"

#include "positional/posizione.h"
#include "screens/griglia_risultati.h"

#include <QPushButton>

namespace sortimetra {

Form_posizione::Form_posizione(Sessione& sessione, QWidget* padre)
    : SchermoRicerca{sessione, QStringLiteral("Form_posizione"), padre} {
    // The names that these two commands have on this screen.
    findChild<QPushButton*>(QStringLiteral("cmdStampa"))->setObjectName(QStringLiteral("Command2"));
    findChild<QPushButton*>(QStringLiteral("cmdChiudi"))->setObjectName(QStringLiteral("cmdesci"));
    griglia()->blocca_prima_colonna(true);
}

void Form_posizione::inizializza_griglia() {
    switch (ricerca()->gioco) {
        case Gioco::lotto:
            inizializza_griglia_estratto();
            break;
        case Gioco::dieci_e_lotto:
            inizializza_griglia10();
            break;
        case Gioco::win_for_life:
            inizializza_grigliaWFL();
            break;
        default:
            griglia()->inizializza(posizione::titoli(7, true));
    }
}

void Form_posizione::inizializza_griglia_estratto() {
    griglia()->inizializza(posizione::titoli(5));
}

void Form_posizione::inizializza_griglia10() {
    griglia()->inizializza(posizione::titoli(20));
}

void Form_posizione::inizializza_grigliaWFL() {
    griglia()->inizializza(posizione::titoli(10));
}

}  // namespace sortimetra

#include "printing/modulo_stampa.h"
#include "qt_pdf.h"

/// See modulo_stampa.h.
extern "C" __attribute__((visibility("default"))) sortimetra::ScriviPdf sortimetra_scrivi_pdf() {
    return sortimetra::scrivi_pdf;
}

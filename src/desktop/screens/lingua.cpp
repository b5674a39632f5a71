#include "screens/lingua.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace sortimetra {

void parla_italiano(QCoreApplication& applicazione) {
    QLocale::setDefault(QLocale{QLocale::Italian, QLocale::Italy});
    auto* dizionario = new QTranslator{&applicazione};
    if (dizionario->load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(dizionario);
}

}  // namespace sortimetra

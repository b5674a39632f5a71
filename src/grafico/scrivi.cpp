#include "files/file_sicuro.h"
#include "grafico/quadro.h"
#include "senza_schermo.h"

#include <QApplication>
#include <QBuffer>
#include <QFontDatabase>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

/// The size of a picture in a file, in pixels at 96 to the inch: a lying A4 sheet.
constexpr QSize kMisura{1123, 794};
constexpr double kPunti = 9;

/// A picture is drawn by a widget, which needs an application that could have windows.
std::expected<void, ErroreArchivio> prepara_qt() {
    if (QCoreApplication::instance() != nullptr &&
        qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
        return std::unexpected(ErroreArchivio{"", "il grafico vuole un programma che possa avere finestre"});
    return avvia_senza_schermo<QApplication>();
}

/// The picture as it stands in every file: black on white, its titles over it, in the reports' own font.
void prepara(Quadro& quadro, const Grafico& grafico, QSize misura) {
    QFont carattere{QStringLiteral("Liberation Sans")};
    carattere.setPointSizeF(kPunti);
    quadro.setFont(carattere);
    quadro.setGeometry(QRect{QPoint{}, misura});
    quadro.mostra(grafico, ColoriGrafico{}, Quadro::Titoli::si);
}

QByteArray svg(Quadro& quadro, const Grafico& grafico) {
    QByteArray byte;
    QBuffer buffer{&byte};
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generatore;
    generatore.setOutputDevice(&buffer);
    generatore.setSize(kMisura);
    generatore.setViewBox(QRect{QPoint{}, kMisura});
    generatore.setResolution(96);
    generatore.setTitle(QString::fromStdString(grafico.titolo));
    generatore.setDescription(QString::fromStdString(grafico.sottotitolo));
    QCPPainter pittore{&generatore};
    pittore.setMode(QCPPainter::pmVectorized);
    pittore.setMode(QCPPainter::pmNoCaching);
    quadro.dipingi(pittore, kMisura);
    pittore.end();
    return byte;
}

QByteArray pdf(Quadro& quadro, const Grafico& grafico) {
    QByteArray byte;
    QBuffer buffer{&byte};
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter scrittore{&buffer};
    scrittore.setResolution(1152);  // twelve to a pixel: lines are placed where they belong
    scrittore.setCreator(QStringLiteral("Sortimetra"));
    scrittore.setTitle(QString::fromStdString(grafico.titolo));
    scrittore.setPageLayout(
        {QPageSize{QPageSize::A4}, QPageLayout::Landscape, {10, 10, 10, 10}, QPageLayout::Millimeter});
    const double scala = static_cast<double>(scrittore.width()) / kMisura.width();
    QCPPainter pittore{&scrittore};
    pittore.setMode(QCPPainter::pmVectorized);
    pittore.setMode(QCPPainter::pmNoCaching);
    pittore.scale(scala, scala);
    quadro.dipingi(pittore, {kMisura.width(), static_cast<int>(scrittore.height() / scala)});
    pittore.end();
    return byte;
}

QByteArray png(Quadro& quadro) {
    QByteArray byte;
    QBuffer buffer{&byte};
    buffer.open(QIODevice::WriteOnly);
    constexpr double kFine = 2;
    quadro.toPixmap(kMisura.width(), kMisura.height(), kFine).toImage().save(&buffer, "PNG");
    return byte;
}

}  // namespace

std::expected<void, ErroreArchivio> disegna_grafico(const Grafico& grafico, const std::filesystem::path& file,
                                                    FormatoGrafico formato) {
    if (const auto pronto = prepara_qt(); !pronto) return pronto;
    auto uscita = FileSicuro::apri(file);
    if (!uscita) return std::unexpected(std::move(uscita.error()));
    Quadro quadro;
    prepara(quadro, grafico, kMisura);
    const QByteArray byte = formato == FormatoGrafico::svg   ? svg(quadro, grafico)
                            : formato == FormatoGrafico::pdf ? pdf(quadro, grafico)
                                                             : png(quadro);
    if (byte.isEmpty()) return std::unexpected(ErroreArchivio{file, "il grafico non si è potuto disegnare"});
    if (auto scritto = uscita->scrivi({byte.constData(), static_cast<std::size_t>(byte.size())}); !scritto)
        return scritto;
    return uscita->conferma();
}

void dipingi_grafico(const Grafico& grafico, QImage& foglio) {
    Quadro quadro;
    const double scala = static_cast<double>(foglio.width()) / kMisura.width();
    const QSize misura{kMisura.width(), static_cast<int>(foglio.height() / scala)};
    prepara(quadro, grafico, misura);
    foglio.fill(Qt::white);
    QCPPainter pittore{&foglio};
    pittore.setMode(QCPPainter::pmVectorized);
    pittore.setMode(QCPPainter::pmNoCaching);
    pittore.setRenderHint(QPainter::Antialiasing);
    pittore.scale(scala, scala);
    quadro.dipingi(pittore, misura);
}

}  // namespace sortimetra

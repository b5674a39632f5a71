#include "screens/tema.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontMetricsF>
#include <QProxyStyle>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using namespace sortimetra;

class TestTema : public QObject {
    Q_OBJECT
  private slots:
    void nove_skin_con_nome_e_colori_propri();
    void il_testo_si_legge_su_ogni_fondo_data();
    void il_testo_si_legge_su_ogni_fondo();
    void il_foglio_non_ha_segnaposti();
    void un_indice_fuori_dai_nove_non_cambia_nulla();
    void le_icone_seguono_la_skin();
    void le_cifre_sono_larghe_uguali();
    void i_bottoni_dei_messaggi_non_hanno_figure();
};

void TestTema::nove_skin_con_nome_e_colori_propri() {
    QSet<QString> nomi;
    QSet<QString> fogli;
    int scure = 0;
    for (const Skin& s : skin()) {
        nomi.insert(QString::fromUtf8(s.nome));
        fogli.insert(foglio_di_stile(s, 10));
        scure += s.scura ? 1 : 0;
        QVERIFY2(qstrlen(s.carattere) > 0, s.nome);
    }
    QCOMPARE(nomi.size(), kNumeroSkin);
    QCOMPARE(fogli.size(), kNumeroSkin);
    QVERIFY(!skin()[0].scura);
    QVERIFY(skin()[1].scura);
    QVERIFY(scure >= 3 && scure <= 6);
}

void TestTema::il_testo_si_legge_su_ogni_fondo_data() {
    QTest::addColumn<int>("indice");
    for (int i = 0; i < kNumeroSkin; ++i) QTest::newRow(skin()[static_cast<std::size_t>(i)].nome) << i;
}

void TestTema::il_testo_si_legge_su_ogni_fondo() {
    QFETCH(int, indice);
    const Skin& s = skin()[static_cast<std::size_t>(indice)];
    struct Coppia {
        const char* nome;
        QRgb testo;
        QRgb fondo;
        double minimo;
    };
    std::vector<Coppia> coppie{
        {"accento", s.testo_accento, s.accento, 4.5},
        {"selezione", s.testo_selezione, s.selezione, 4.5},
        {"trovato", s.testo_trovato, s.trovato, 4.5},
        {"bordo su superficie", s.bordo, s.superficie, 3},
        {"accento su finestra", s.accento, s.finestra, 3},
        {"accento su superficie", s.accento, s.superficie, 3},
    };
    for (const QRgb fondo : {s.finestra, s.superficie, s.rilievo, s.tinta_a, s.tinta_b}) {
        coppie.push_back({"testo", s.testo, fondo, 4.5});
        coppie.push_back({"testo quieto", s.testo_quieto, fondo, 4.5});
    }
    for (const QRgb fondo : {s.finestra, s.superficie, s.tinta_a, s.tinta_b}) {
        coppie.push_back({"avviso", s.avviso, fondo, 4.5});
        coppie.push_back({"buono", s.buono, fondo, 4.5});
    }
    if (indice == 2) coppie.push_back({"alto contrasto", s.testo_quieto, s.tinta_b, 7});
    for (const Coppia& c : coppie) {
        const double k = contrasto(c.testo, c.fondo);
        QVERIFY2(k >= c.minimo, qPrintable(QStringLiteral("%1 su %2: %3")
                                               .arg(QLatin1String(c.nome), QString::number(c.fondo, 16))
                                               .arg(k)));
    }
    // Zebra rows and selection must be told apart from each other.
    QVERIFY(s.tinta_a != s.tinta_b);
    QVERIFY(contrasto(s.selezione, s.tinta_b) > 1.1);
}

void TestTema::il_foglio_non_ha_segnaposti() {
    for (const Skin& s : skin()) {
        const QString foglio = foglio_di_stile(s, 10);
        QVERIFY2(!foglio.contains(QLatin1Char('@')), s.nome);
        auto glifi = QRegularExpression(QStringLiteral("url\\((:[^)]+)\\)")).globalMatch(foglio);
        QVERIFY(glifi.hasNext());
        QVERIFY(!icona(QStringLiteral("avvia")).isNull());
        while (glifi.hasNext()) {
            const QString file = glifi.next().captured(1);
            QVERIFY2(QFile::exists(file), qPrintable(file));
        }
    }
}

void TestTema::un_indice_fuori_dai_nove_non_cambia_nulla() {
    QVERIFY(applica_tema(*qApp, 4));
    QCOMPARE(indice_skin_in_uso(), 4);
    for (const int indice : {0, 10, -1, 4000}) {
        QVERIFY(!applica_tema(*qApp, indice));
        QCOMPARE(indice_skin_in_uso(), 4);
    }
    QCOMPARE(qApp->palette().color(QPalette::Window).rgb(), skin()[3].finestra);
}

void TestTema::le_icone_seguono_la_skin() {
    const QIcon i = icona(QStringLiteral("avvia"));
    const auto colore = [&i] {
        const QImage immagine = i.pixmap(QSize(32, 32)).toImage();
        return immagine.pixel(14, 16);
    };
    applica_tema(*qApp, 1);
    QCOMPARE(colore(), skin()[0].testo);
    applica_tema(*qApp, 2);
    QCOMPARE(colore(), skin()[1].testo);
    QVERIFY(icona(QStringLiteral("non esiste")).isNull());
}

void TestTema::le_cifre_sono_larghe_uguali() {
    const QFontMetricsF misure{carattere_tabellare(qApp->font())};
    for (const char cifra : {'1', '4', '7', '8'})
        QCOMPARE(misure.horizontalAdvance(QLatin1Char(cifra)), misure.horizontalAdvance(QLatin1Char('0')));
}

// A desktop's own stock pictures are not the skin's. The offscreen platform has none, so a style asks for
// them.
void TestTema::i_bottoni_dei_messaggi_non_hanno_figure() {
    class ConFigure : public QProxyStyle {
      public:
        using QProxyStyle::QProxyStyle;
        int styleHint(StyleHint quale, const QStyleOption* opzione, const QWidget* widget,
                      QStyleHintReturn* ritorno) const override {
            if (quale == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
            return QProxyStyle::styleHint(quale, opzione, widget, ritorno);
        }
    };
    QVERIFY(applica_tema(*qApp, 1));
    QApplication::setStyle(new ConFigure{QStringLiteral("Fusion")});
    const QDialogButtonBox bottoni{QDialogButtonBox::Ok | QDialogButtonBox::Cancel};
    QVERIFY(bottoni.button(QDialogButtonBox::Ok)->icon().isNull());
    QVERIFY(bottoni.button(QDialogButtonBox::Cancel)->icon().isNull());
}

QTEST_MAIN(TestTema)
#include "test_tema.moc"

#include "personal/griglia_poste.h"

#include "qt_testi.h"
#include "screens/tema.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QStyledItemDelegate>

namespace sortimetra {

namespace {

constexpr int kImporto = static_cast<int>(kSorti);
constexpr int kStampa = kImporto + 1;

/// The floating box of a stake.
class DelegatoPosta final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem&, const QModelIndex&) const override {
        auto* casella = new QLineEdit{padre};
        casella->setObjectName(QStringLiteral("txtimporto"));
        casella->setAccessibleName(QObject::tr("Posta in euro"));
        casella->setAlignment(Qt::AlignRight);
        casella->setValidator(
            new QRegularExpressionValidator{QRegularExpression{QStringLiteral("[0-9,]*")}, casella});
        return casella;
    }
    void setEditorData(QWidget* casella, const QModelIndex& cella) const override {
        auto* testo = static_cast<QLineEdit*>(casella);
        // The points between thousands cannot be typed: they come back on leaving.
        testo->setText(cella.data().toString().remove(u'.'));
        testo->selectAll();
    }
    void setModelData(QWidget* casella, QAbstractItemModel* modello,
                      const QModelIndex& cella) const override {
        const QString testo = static_cast<QLineEdit*>(casella)->text();
        modello->setData(cella, testo.isEmpty() ? testo : testo_qt(posta_lasciata(testo.toStdString())));
    }
};

}  // namespace

GrigliaPoste::GrigliaPoste(QWidget* padre)
    : QTableWidget{static_cast<int>(kRighePiramide), kStampa + 1, padre} {
    setObjectName(QStringLiteral("MSHFlexGrid1"));
    setAccessibleName(tr("Poste delle schedine, in euro"));
    setItemDelegate(new DelegatoPosta{this});
    setTabKeyNavigation(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                    QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    setFont(carattere_tabellare(font()));
    QStringList titoli;
    for (const std::string_view s : kNomiSorti) titoli << testo_qt(s);
    titoli << tr("Importo") << tr("Stampa");
    setHorizontalHeaderLabels(titoli);
    QStringList righe;
    for (const std::string_view r : kRigheSchedine) righe << testo_qt(r);
    setVerticalHeaderLabels(righe);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->setDefaultSectionSize(9 * kPasso);
    for (int r = 0; r < rowCount(); ++r) {
        for (int c = 0; c <= kImporto; ++c) {
            auto* cella = new QTableWidgetItem;
            cella->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (c == kImporto) cella->setFlags(Qt::ItemIsEnabled);
            setItem(r, c, cella);
        }
        auto* casella = new QCheckBox;
        casella->setObjectName(QStringLiteral("Checksch_%1").arg(r));
        casella->setAccessibleName(tr("Stampa la schedina %1").arg(righe[r]));
        auto* centro = new QWidget;
        auto* riga = new QHBoxLayout{centro};
        riga->setContentsMargins(0, 0, 0, 0);
        riga->addWidget(casella, 0, Qt::AlignCenter);
        setCellWidget(r, kStampa, centro);
        connect(casella, &QCheckBox::toggled, this, [this] { modificate_ = modificate_ || !fermo_; });
        caselle_[static_cast<std::size_t>(r)] = casella;
    }
    connect(this, &QTableWidget::cellChanged, this, [this](int riga, int colonna) {
        if (fermo_ || colonna >= kImporto) return;
        modificate_ = true;
        calcolo_importo(riga);
    });
}

void GrigliaPoste::mostra(const Poste& poste) {
    fermo_ = true;
    for (int r = 0; r < rowCount(); ++r) {
        const RigaPoste& riga = poste[static_cast<std::size_t>(r)];
        for (int c = 0; c < kImporto; ++c)
            item(r, c)->setText(testo_qt(testo_posta(riga.poste[static_cast<std::size_t>(c)])));
        casella(r)->setChecked(riga.stampa);
        calcolo_importo(r);
    }
    fermo_ = false;
    modificate_ = false;
}

Poste GrigliaPoste::poste() const {
    Poste poste;
    for (int r = 0; r < rowCount(); ++r) {
        RigaPoste& riga = poste[static_cast<std::size_t>(r)];
        for (int c = 0; c < kImporto; ++c)
            riga.poste[static_cast<std::size_t>(c)] = leggi_posta(item(r, c)->text().toStdString());
        riga.stampa = casella(r)->isChecked();
    }
    return poste;
}

void GrigliaPoste::calcolo_importo(int riga) {
    item(riga, kImporto)->setText(testo_qt(testo_importo(poste()[static_cast<std::size_t>(riga)].importo())));
}

}  // namespace sortimetra

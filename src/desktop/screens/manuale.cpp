#include "screens/manuale.h"

#include "screens/posto_finestra.h"
#include "screens/tema.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextList>
#include <QTextTable>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

constexpr QSize kManualeAllApertura{920, 660};
/// Below this width the list of chapters makes room for the text.
constexpr int kSenzaIndice = 180 * kPasso;
/// Lines longer than this are hard to follow.
constexpr int kRigaMassima = 180 * kPasso;
constexpr const char* kProprieta = "capitolo";

QString nome_capitolo(const QString& titolo) {
    QString nome;
    for (const QChar c : titolo.toLower()) {
        if (c.isLetterOrNumber()) nome += c;
        if (c == QLatin1Char{' '}) nome += QLatin1Char{'-'};
    }
    return nome;
}

QString leggi_manuale() {
    QFile file{QStringLiteral(":/manuale.md")};
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString{};
}

/// A line of text stays short enough to be read, however wide the window.
class TestoManuale final : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

  protected:
    void resizeEvent(QResizeEvent* evento) override {
        const int lato = std::max((width() - kRigaMassima) / 2, 0);
        setViewportMargins(lato, 0, lato, 0);
        QTextBrowser::resizeEvent(evento);
    }
};

}  // namespace

FinestraManuale::FinestraManuale(QWidget* padre)
    : QWidget{padre, Qt::Window},
      testo_{new TestoManuale{this}},
      indice_{new QListWidget{this}},
      txt_trova_{new QLineEdit{this}},
      esito_{new QLabel{this}},
      cmd_indietro_{new QToolButton{this}} {
    setObjectName(QStringLiteral("FinestraManuale"));
    setWindowTitle(tr("Manuale"));
    componi();
    scrivi();
    resize(kManualeAllApertura);
    setMinimumSize(90 * kPasso, 60 * kPasso);
}

void FinestraManuale::componi() {
    testo_->setObjectName(QStringLiteral("txtmanuale"));
    testo_->setAccessibleName(tr("Manuale"));
    testo_->setOpenLinks(false);
    testo_->setFrameShape(QFrame::NoFrame);
    connect(testo_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& dove) { salta(dove.fragment(QUrl::FullyDecoded)); });
    connect(testo_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { segna_capitolo(); });

    indice_->setObjectName(QStringLiteral("lstcapitoli"));
    indice_->setAccessibleName(tr("Capitoli"));
    indice_->setFixedWidth(58 * kPasso);
    indice_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const auto scelto = [this](const QListWidgetItem* voce) {
        if (voce != nullptr) salta(voce->data(Qt::UserRole).toString());
    };
    connect(indice_, &QListWidget::itemClicked, this, scelto);
    connect(indice_, &QListWidget::itemActivated, this, scelto);

    txt_trova_->setObjectName(QStringLiteral("txttrovamanuale"));
    txt_trova_->setPlaceholderText(tr("Trova nel manuale"));
    txt_trova_->setAccessibleName(tr("Trova nel manuale"));
    txt_trova_->setMaximumWidth(80 * kPasso);
    txt_trova_->addAction(icona(QStringLiteral("cerca"), TintaIcona::quieto), QLineEdit::LeadingPosition);
    txt_trova_->installEventFilter(this);
    connect(txt_trova_, &QLineEdit::textChanged, this, [this] {
        // From where the finding stands now, so that one more letter stays at the same place.
        QTextCursor cursore = testo_->textCursor();
        cursore.setPosition(cursore.selectionStart());
        testo_->setTextCursor(cursore);
        trova(true);
    });
    esito_->setObjectName(QStringLiteral("lblesitomanuale"));
    assegna_ruolo(esito_, "quieto");
    cmd_indietro_->setObjectName(QStringLiteral("cmdIndietro"));
    cmd_indietro_->setIcon(icona(QStringLiteral("sinistra")));
    cmd_indietro_->setAccessibleName(tr("Indietro"));
    cmd_indietro_->setToolTip(tr("Torna dov'eri (Alt+Sinistra)"));
    cmd_indietro_->setFocusPolicy(Qt::StrongFocus);
    cmd_indietro_->setEnabled(false);
    connect(cmd_indietro_, &QToolButton::clicked, this, &FinestraManuale::indietro);

    auto* alto = new QHBoxLayout;
    alto->setSpacing(2 * kPasso);
    alto->addWidget(cmd_indietro_);
    alto->addWidget(txt_trova_, 1);
    alto->addWidget(esito_);
    alto->addStretch(1);
    auto* centro = new QHBoxLayout;
    centro->setSpacing(kMargine);
    centro->addWidget(indice_);
    centro->addWidget(testo_, 1);
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(kMargine, kMargine, kMargine, kMargine);
    tutto->setSpacing(2 * kPasso);
    tutto->addLayout(alto);
    tutto->addLayout(centro, 1);

    const auto tasto = [this](const QKeySequence& sequenza, auto&& azione) {
        connect(new QShortcut{sequenza, this}, &QShortcut::activated, this, azione);
    };
    tasto(QKeySequence::Find, [this] {
        txt_trova_->setFocus();
        txt_trova_->selectAll();
    });
    tasto(QKeySequence::Back, [this] { indietro(); });
}

/// Sets the text from the resource: links take their colour at this moment, so a new skin writes it anew.
void FinestraManuale::scrivi() {
    const int dove = testo_->verticalScrollBar()->value();
    testo_->document()->setDocumentMargin(kMargine);
    testo_->document()->setMarkdown(leggi_manuale(), QTextDocument::MarkdownDialectGitHub);
    vesti();
    capitoli_.clear();
    indice_->clear();
    for (QTextBlock b = testo_->document()->begin(); b.isValid(); b = b.next()) {
        const int livello = b.blockFormat().headingLevel();
        if (livello == 0) continue;
        capitoli_.push_back({nome_capitolo(b.text()), b.text(), livello, b.blockNumber()});
        if (livello > 3) continue;
        // Air between the lines of the list is that of menus.
        auto* voce = new QListWidgetItem{QString(livello > 2 ? 4 : 0, QLatin1Char{' '}) + b.text(), indice_};
        voce->setData(Qt::UserRole, capitoli_.back().nome);
        voce->setSizeHint({0, indice_->fontMetrics().height() + 2 * kPasso});
    }
    testo_->verticalScrollBar()->setValue(dove);
    segna_capitolo();
}

/// Air between paragraphs, rules round the cells of tables.
void FinestraManuale::vesti() {
    const Skin& s = skin_in_uso();
    // One change, so that the text is laid out once.
    QTextCursor tutto{testo_->document()};
    tutto.beginEditBlock();
    for (QTextBlock b = testo_->document()->begin(); b.isValid(); b = b.next()) {
        QTextCursor cursore{b};
        QTextBlockFormat forma = b.blockFormat();
        const bool in_tabella = cursore.currentTable() != nullptr;
        const int livello = forma.headingLevel();
        // Lines of code, too, go on below where the window is narrow.
        forma.setNonBreakableLines(false);
        forma.setLineHeight(in_tabella ? 100 : 125, QTextBlockFormat::ProportionalHeight);
        if (livello > 0) {
            forma.setTopMargin(livello > 2 ? 4 * kPasso : 7 * kPasso);
            forma.setBottomMargin(2 * kPasso);
        } else if (!in_tabella && !b.blockFormat().hasProperty(QTextFormat::BlockCodeFence)) {
            forma.setBottomMargin(b.textList() != nullptr ? kPasso : 2 * kPasso);
        }
        cursore.setBlockFormat(forma);
        if (QTextTable* tabella = cursore.currentTable(); tabella != nullptr) {
            QTextTableFormat bordi = tabella->format();
            bordi.setCellPadding(kPasso);
            bordi.setCellSpacing(0);
            bordi.setBorder(1);
            bordi.setBorderBrush(QColor::fromRgb(s.linea));
            bordi.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            bordi.setBorderCollapse(true);
            if (bordi != tabella->format()) tabella->setFormat(bordi);
        }
    }
    tutto.endEditBlock();
}

int FinestraManuale::altezza_di(int blocco) const {
    const QTextBlock b = testo_->document()->findBlockByNumber(blocco);
    return static_cast<int>(testo_->document()->documentLayout()->blockBoundingRect(b).top());
}

void FinestraManuale::vai_a(const QString& capitolo) {
    const auto c = std::find_if(capitoli_.begin(), capitoli_.end(),
                                [&](const Capitolo& x) { return x.nome == capitolo; });
    const int blocco = c == capitoli_.end() ? 0 : c->blocco;
    testo_->setTextCursor(QTextCursor{testo_->document()->findBlockByNumber(blocco)});
    testo_->verticalScrollBar()->setValue(blocco == 0 ? 0 : altezza_di(blocco) - kPasso);
    arrivo_ = c == capitoli_.end() ? QString{} : c->nome;
    alto_all_arrivo_ = testo_->verticalScrollBar()->value();
    segna_capitolo();
}

void FinestraManuale::salta(const QString& capitolo) {
    passati_.push_back(testo_->verticalScrollBar()->value());
    cmd_indietro_->setEnabled(true);
    vai_a(capitolo);
}

void FinestraManuale::indietro() {
    if (passati_.empty()) return;
    testo_->verticalScrollBar()->setValue(passati_.back());
    passati_.pop_back();
    cmd_indietro_->setEnabled(!passati_.empty());
}

QString FinestraManuale::capitolo() const {
    const int valore = testo_->verticalScrollBar()->value();
    if (!arrivo_.isEmpty() && valore == alto_all_arrivo_) return arrivo_;
    const int alto = valore + 2 * kPasso;
    QString nome;
    for (const Capitolo& c : capitoli_)
        if (altezza_di(c.blocco) <= alto || nome.isEmpty()) nome = c.nome;
    return nome;
}

QStringList FinestraManuale::capitoli() const {
    QStringList nomi;
    for (const Capitolo& c : capitoli_) nomi << c.nome;
    return nomi;
}

void FinestraManuale::segna_capitolo() {
    const QString qui = capitolo();
    for (int i = 0; i < indice_->count(); ++i)
        if (indice_->item(i)->data(Qt::UserRole).toString() == qui) {
            indice_->setCurrentRow(i);
            return;
        }
}

void FinestraManuale::trova(bool avanti) {
    const QString cercato = txt_trova_->text();
    if (cercato.isEmpty()) {
        esito_->clear();
        return;
    }
    const QTextDocument::FindFlags verso = avanti ? QTextDocument::FindFlags{} : QTextDocument::FindBackward;
    if (!testo_->find(cercato, verso)) {
        // Once more from the other end.
        const QTextCursor prima = testo_->textCursor();
        testo_->moveCursor(avanti ? QTextCursor::Start : QTextCursor::End);
        if (!testo_->find(cercato, verso)) {
            testo_->setTextCursor(prima);
            esito_->setText(tr("Non c'è"));
            return;
        }
    }
    esito_->clear();
}

bool FinestraManuale::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == txt_trova_ && evento->type() == QEvent::KeyPress) {
        const auto* tasto = dynamic_cast<QKeyEvent*>(evento);
        if (tasto != nullptr && (tasto->key() == Qt::Key_Return || tasto->key() == Qt::Key_Enter)) {
            trova((tasto->modifiers() & Qt::ShiftModifier) == 0);
            return true;
        }
    }
    return QWidget::eventFilter(oggetto, evento);
}

void FinestraManuale::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(evento);
}

void FinestraManuale::showEvent(QShowEvent* evento) {
    if (!evento->spontaneous() && !std::exchange(posto_letto_, true))
        leggi_posto(*this, sessione_, kManualeAllApertura);
    QWidget::showEvent(evento);
}

void FinestraManuale::closeEvent(QCloseEvent* evento) {
    scrivi_posto(*this, sessione_);
    QWidget::closeEvent(evento);
}

void FinestraManuale::resizeEvent(QResizeEvent* evento) {
    indice_->setVisible(width() >= kSenzaIndice);
    QWidget::resizeEvent(evento);
}

void FinestraManuale::changeEvent(QEvent* evento) {
    QWidget::changeEvent(evento);
    if (evento->type() == QEvent::PaletteChange) scrivi();
}

// ---- F1 ----

namespace {

/// Sees every key before its widget does, and answers F1.
class AscoltoF1 final : public QObject {
  public:
    using QObject::QObject;
    Sessione sessione;
    QPointer<FinestraManuale> finestra;

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() != QEvent::KeyPress || !oggetto->isWidgetType()) return false;
        const auto* tasto = dynamic_cast<QKeyEvent*>(evento);
        const bool solo = tasto != nullptr && tasto->key() == Qt::Key_F1 &&
                          (tasto->modifiers() == Qt::NoModifier || tasto->modifiers() == Qt::ShiftModifier);
        return solo && rispondi_a(qobject_cast<QWidget*>(oggetto), tasto->modifiers() != Qt::NoModifier);
    }

  private:
    /// The title under the pointer is asked first, wherever the keyboard is.
    static bool sotto_il_puntatore() {
        QWidget* sotto = QApplication::widgetAt(QCursor::pos());
        for (QWidget* w = sotto; w != nullptr; w = w->parentWidget())
            if (auto* spiegabile = dynamic_cast<Spiegabile*>(w); spiegabile != nullptr)
                return spiegabile->spiega_parte(sotto, false);
        return false;
    }
    static bool rispondi_a(QWidget* parte, bool maiuscole) {
        if (!maiuscole && sotto_il_puntatore()) return true;
        QString capitolo;
        for (QWidget* w = parte; w != nullptr; w = w->parentWidget()) {
            auto* spiegabile = dynamic_cast<Spiegabile*>(w);
            if (spiegabile != nullptr && spiegabile->spiega_parte(parte, maiuscole)) return true;
            if (capitolo.isEmpty()) capitolo = w->property(kProprieta).toString();
        }
        if (maiuscole) return false;
        if (qobject_cast<FinestraManuale*>(parte->window()) == nullptr) apri_manuale(parte, capitolo);
        return true;
    }
};

AscoltoF1* ascolto() {
    static QPointer<AscoltoF1> uno;
    if (uno == nullptr) {
        uno = new AscoltoF1{qApp};
        qApp->installEventFilter(uno);
    }
    return uno;
}

}  // namespace

void assegna_capitolo(QWidget* finestra, const char* capitolo) {
    finestra->setProperty(kProprieta, QString::fromLatin1(capitolo));
}

void ascolta_f1(const Sessione& sessione) {
    ascolto()->sessione = sessione;
}

FinestraManuale* apri_manuale(QWidget* da, const QString& capitolo) {
    AscoltoF1* a = ascolto();
    QWidget* padrone = da == nullptr ? nullptr : da->window();
    if (a->finestra != nullptr && a->finestra != padrone && a->finestra->parentWidget() != padrone) {
        a->finestra->close();
        delete a->finestra;
    }
    if (a->finestra == nullptr) a->finestra = new FinestraManuale{padrone};
    a->finestra->ricorda(a->sessione);
    a->finestra->show();
    a->finestra->raise();
    a->finestra->activateWindow();
    a->finestra->vai_a(capitolo);
    return a->finestra;
}

}  // namespace sortimetra

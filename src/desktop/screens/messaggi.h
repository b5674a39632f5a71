#pragma once

#include "results/messaggio.h"

#include <QList>
#include <QString>
#include <optional>
#include <string>

class QWidget;

namespace sortimetra {

enum class Assenso { si, no, annulla };

/// Where the windows stop and ask a person. Everything modal goes through here, so that a test can read what
/// would have been shown and give the answer.
class Messaggi {
  public:
    Messaggi() = default;
    Messaggi(const Messaggi&) = delete;
    Messaggi& operator=(const Messaggi&) = delete;
    virtual ~Messaggi() = default;

    /// A message box with an information icon and one button.
    virtual void informa(QWidget* padre, const QString& titolo, const QString& testo);
    /// The same with a warning icon, for what failed.
    virtual void avvisa(QWidget* padre, const QString& titolo, const QString& testo);
    /// The same with a stop icon, for what ends a job.
    virtual void ferma(QWidget* padre, const QString& titolo, const QString& testo);
    /// A yes or no question; "no" is the safe answer.
    [[nodiscard]] virtual bool chiede(QWidget* padre, const QString& titolo, const QString& testo);
    /// The same with a third way out; "cancel" is the safe answer.
    [[nodiscard]] virtual Assenso chiede_o_annulla(QWidget* padre, const QString& titolo,
                                                   const QString& testo);
    /// Asks for a file to write; nothing if the user thinks better of it. `filtri` as QFileDialog has them.
    [[nodiscard]] virtual std::optional<QString> file_da_scrivere(QWidget* padre, const QString& titolo,
                                                                  const QString& proposto,
                                                                  const QString& filtri, QString* filtro);
    /// Asks for a file to read.
    [[nodiscard]] virtual std::optional<QString> file_da_leggere(QWidget* padre, const QString& titolo,
                                                                 const QString& cartella,
                                                                 const QString& filtri);
};

/// The title of nearly every message.
inline const QString kTitoloMessaggi = QStringLiteral("Sortimetra");

/// Shows a message of a search under the title that it has: nearly always the program's name.
void mostra_messaggio(QWidget* padre, const Messaggio& messaggio);

/// The one in use: real boxes, unless a test has put its own in their place.
[[nodiscard]] Messaggi& messaggi();

/// Stands in for the boxes while it lives: keeps what was said, answers from its fields.
class MessaggiDiProva final : public Messaggi {
  public:
    struct Detto {
        QString titolo;
        QString testo;
    };

    MessaggiDiProva();
    ~MessaggiDiProva() override;

    void informa(QWidget* padre, const QString& titolo, const QString& testo) override;
    void avvisa(QWidget* padre, const QString& titolo, const QString& testo) override;
    void ferma(QWidget* padre, const QString& titolo, const QString& testo) override;
    bool chiede(QWidget* padre, const QString& titolo, const QString& testo) override;
    Assenso chiede_o_annulla(QWidget* padre, const QString& titolo, const QString& testo) override;
    std::optional<QString> file_da_scrivere(QWidget* padre, const QString& titolo, const QString& offerto,
                                            const QString& filtri, QString* filtro) override;
    std::optional<QString> file_da_leggere(QWidget* padre, const QString& titolo, const QString& cartella,
                                           const QString& filtri) override;

    QList<Detto> detti;
    bool risposta = false;
    Assenso risposta_a_tre = Assenso::annulla;
    std::optional<QString> file;
    QString proposto;  ///< the name that the last file dialog offered

  private:
    Messaggi* precedente_;
};

}  // namespace sortimetra

#pragma once

#include <QString>
#include <QStringList>

/// What logic has to tell the user about a step that is done, or refused, without an error: the one
/// door through which it speaks. A box says it, unless somebody listens: an import that writes a
/// log listens to its steps, and no box stands open while it runs.
namespace told {

/// Tells a sentence.
void message(const QString &sentence, const QString &title = {});
/// The same, marked as information or as a failure.
void information(const QString &sentence);
void critical(const QString &sentence);

/// While one lives, what is told is kept here in place of boxes. Listeners nest: the innermost
/// hears.
class Listener
{
public:
    Listener();
    ~Listener();
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    /// What was told so far, in its order.
    [[nodiscard]] const QStringList &sentences() const { return m_sentences; }
    /// Keeps a sentence; called by the procedures above.
    void hear(const QString &sentence) { m_sentences.append(sentence); }

private:
    QStringList m_sentences;
    Listener *m_outer;
};

} // namespace told

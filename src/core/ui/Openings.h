#pragma once

#include "core/Mode.h"

#include <QHash>
#include <QString>
#include <functional>
#include <type_traits>

/// What an opening is given beside its name. A function uses what concerns it.
struct OpeningArguments
{
    Mode mode = Mode::Browse;
    QString key = QStringLiteral("0"); ///< of the record to open on
    QString query{};                   ///< a report's filter clause, or its whole statement
    bool other = false; ///< a report's second form: orders by crew, history as a summary
};

/// The functions behind the list of what can be opened (core/OpeningTable.h). The application joins
/// them at its start; menus, the board and buttons open them by name, and know neither each other
/// nor the folder that owns the screen. What nobody has joined is offered by nobody.
///
///     openings().join(u"frmPart"_s, [](const OpeningArguments &a) { showPartDetail(a.mode, a.key);
///     }); openings().open(u"frmPart", {.mode = Mode::Add});
class Openings
{
public:
    /// Joins a function with or without arguments; what it answers, if a bool, is what open()
    /// answers. Raises base::Error NoSuchItem for a name that the list lacks, so that a slip shows
    /// at the first start.
    template<class Function>
    void join(const QString &name, Function function)
    {
        insert(name, [function](const OpeningArguments &arguments) {
            const auto call = [&]() -> decltype(auto) {
                if constexpr (std::is_invocable_v<const Function &, const OpeningArguments &>)
                    return function(arguments);
                else
                    return function();
            };
            if constexpr (std::is_same_v<decltype(call()), bool>) {
                return call();
            } else {
                static_cast<void>(call());
                return true;
            }
        });
    }
    /// Whether there is a function behind a name, whatever the user's rights.
    [[nodiscard]] bool isJoined(QStringView name) const;
    /// Opens it, and comes back when it is closed. False when nobody has joined it, when the user
    /// lacks its right and has been told so, and when its function answers so: a report did not
    /// come up.
    bool open(QStringView name, const OpeningArguments &arguments = {}) const;

private:
    using Open = std::function<bool(const OpeningArguments &)>;
    void insert(const QString &name, Open open);

    QHash<QString, Open> m_functions;
};

/// The openings of this process.
[[nodiscard]] Openings &openings();

#pragma once

#include "platform/db/Recordset.h"

#include <memory>

namespace db {

/// A query whose rows are fetched a part at a time, for a list that is shown before all of it has
/// been read. The connection that made it must outlive it. It ends with the transaction that it was
/// opened in: what is fetched after that raises DbError.
class Gradual
{
public:
    class Source;
    explicit Gradual(std::unique_ptr<Source> source);
    ~Gradual();
    Gradual(Gradual &&) noexcept;
    Gradual &operator=(Gradual &&) noexcept;

    /// Fetches up to so many rows more; false when all rows are there. Raises DbError.
    bool fetch(int rows);
    [[nodiscard]] bool isComplete() const;
    /// All rows fetched so far, in their order.
    [[nodiscard]] Recordset rows() const;

private:
    std::unique_ptr<Source> m_source;
};

} // namespace db

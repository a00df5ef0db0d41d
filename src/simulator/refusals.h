#pragma once

#include <QElapsedTimer>
#include <QtGlobal>
#include <vector>

/// Which refused messages a pendant was told of lately: each id with each reason once a second, so
/// that a page that polls does not fill the screen.
class Refusals {
public:
    static constexpr qint64 kBetween = 1000; ///< milliseconds

    /// Whether the pendant is to be told of it now; if so, it counts as told.
    bool isDue(quint16 id, const char *reason);

private:
    struct Told {
        quint16 id;
        const char *reason; ///< one of the handlers' own texts
        QElapsedTimer since;
    };
    std::vector<Told> m_told; ///< within the last second
};

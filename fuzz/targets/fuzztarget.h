#pragma once

#include <QByteArray>
#include <QMap>

#include <array>
#include <memory>

/// One reader of foreign bytes with all that stands behind it. The same code runs under the fuzzer and in the tests
/// that replay the corpus. It needs a QApplication.
class fuzztarget {
public:
    virtual ~fuzztarget() = default;

    /// Ends the process when something unsound comes of the input. What one input leaves behind is gone before the
    /// next, so that each finding can be played again alone.
    virtual void run(const QByteArray& input) = 0;

    /// How often the inputs so far got somewhere, by the name of the place. All places stand in it, so that who has run
    /// many inputs sees what none of them came to.
    virtual QMap<QByteArray, int> reached() const = 0;
};

/// The names of the targets, which are also those of their directories in the corpus.
constexpr std::array<const char*, 4> targetNames{"dispatch", "payloads", "settings", "pictures"};

/// Null for a name that is none.
std::unique_ptr<fuzztarget> makeTarget(const QByteArray& name);

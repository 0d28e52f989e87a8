#include "namedelegate.h"

#include "prompts/plainline.h"

namespace {

// What file systems allow.
constexpr int longestName = 255;

} // namespace

QString namedelegate::displayText(const QVariant& value, const QLocale&) const
{
    return plainLine(value.toString(), longestName);
}

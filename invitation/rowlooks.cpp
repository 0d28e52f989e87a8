#include "rowlooks.h"

#include <QPainter>
#include <QPixmap>

#include <cstddef>
#include <iterator>

namespace {

constexpr qreal plateCorner = 3; ///< pixels

struct lookentry {
    const char* icon;
    const char* toolTip;
};

// The looks of clients by the value of their state, and behind them the three that depend on more than the state.
constexpr lookentry entries[] = {
    {":/gfx/gfx/player.png", "Rightclick or doubleclick to invite"},
    {":/gfx/gfx/player_busy.png", "Client autorejected invite"},
    {":/gfx/gfx/player_invited.png", "Client is invited"},
    {":/gfx/gfx/player_accepted.png", "Client accepted invite"},
    {":/gfx/gfx/player_rejected.png", "Client rejected invite"},
    {":/gfx/gfx/player_rejectedversion.png", "Plugin version mismatch"},
    {":/gfx/gfx/player_host.png", "Host"},
    {":/gfx/gfx/player_self.png", "You"},
    {":/gfx/gfx/player_withplugin.png", "Rightclick or doubleclick to invite [Client has kelvor running]"},
    {":/gfx/gfx/channel.png", "Rightclick or doubleclick to invite"},
    {":/gfx/gfx/channel_invited.png", "Channel is invited"},
};
constexpr std::size_t clientWithPlugin = 8;
constexpr std::size_t channel = 9;
constexpr std::size_t invitedChannel = 10;

std::size_t indexOf(invitestate state, bool isChannel, bool withPlugin)
{
    if (state == invitestate::invite_none && isChannel)
        return channel;
    if (state == invitestate::invite_none && withPlugin)
        return clientWithPlugin;
    if (state == invitestate::invite_invited && isChannel)
        return invitedChannel;
    return static_cast<std::size_t>(state);
}

// On a selected row the toolkit would tint the picture and lay it on the highlight, where the state could not be told
// any more: there the picture stands on a white plate instead, as it is.
QPixmap onPlate(const QPixmap& picture)
{
    QPixmap plate(picture.size());
    plate.setDevicePixelRatio(picture.devicePixelRatio());
    plate.fill(Qt::transparent);
    QPainter painter(&plate);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    const QRectF area(QPointF(0, 0), QSizeF(plate.size()) / plate.devicePixelRatio());
    painter.drawRoundedRect(area, plateCorner, plateCorner);
    painter.drawPixmap(QPointF(0, 0), picture);
    return plate;
}

QIcon iconOf(const char* file)
{
    const QString path = QString::fromLatin1(file);
    QIcon icon(path);
    const QPixmap picture(path);
    if (!picture.isNull())
        icon.addPixmap(onPlate(picture), QIcon::Selected);
    return icon;
}

} // namespace

rowlooks::rowlooks()
{
    static_assert(std::size(entries) == std::tuple_size<decltype(looks)>::value, "each look has its entry");
    for (std::size_t i = 0; i < looks.size(); ++i)
        looks[i] = {iconOf(entries[i].icon), QString::fromLatin1(entries[i].toolTip)};
}

const rowlook& rowlooks::of(invitestate state, bool isChannel, bool withPlugin) const
{
    return looks[indexOf(state, isChannel, withPlugin)];
}

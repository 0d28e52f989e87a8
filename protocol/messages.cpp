#include "messages.h"

#include <tuple>

namespace {

auto members(const invitemessage& m) { return std::tie(m.version, m.sender); }
auto members(const clientlistmessage& m) { return std::tie(m.list, m.sender); }
auto members(const channellistmessage& m) { return std::tie(m.list, m.sender); }
auto members(const clientmessage& m) { return std::tie(m.client, m.sender); }
auto members(const channelmessage& m) { return std::tie(m.channel, m.sender); }
auto members(const sendermessage& m) { return std::tie(m.sender); }
auto members(const startmessage& m)
{
    return std::tie(m.width, m.height, m.channel, m.background, m.size, m.path, m.sender);
}
auto members(const drawmessage& m) { return std::tie(m.tool, m.color, m.thick, m.points, m.sender); }
auto members(const extendeddrawmessage& m) { return std::tie(m.tool, m.data, m.sender); }
auto members(const downloadfinishedmessage& m) { return std::tie(m.result, m.sender); }

} // namespace

bool operator==(const invitemessage& a, const invitemessage& b) { return members(a) == members(b); }
bool operator==(const clientlistmessage& a, const clientlistmessage& b) { return members(a) == members(b); }
bool operator==(const channellistmessage& a, const channellistmessage& b) { return members(a) == members(b); }
bool operator==(const clientmessage& a, const clientmessage& b) { return members(a) == members(b); }
bool operator==(const channelmessage& a, const channelmessage& b) { return members(a) == members(b); }
bool operator==(const sendermessage& a, const sendermessage& b) { return members(a) == members(b); }
bool operator==(const startmessage& a, const startmessage& b) { return members(a) == members(b); }
bool operator==(const drawmessage& a, const drawmessage& b) { return members(a) == members(b); }
bool operator==(const extendeddrawmessage& a, const extendeddrawmessage& b) { return members(a) == members(b); }
bool operator==(const downloadfinishedmessage& a, const downloadfinishedmessage& b) { return members(a) == members(b); }

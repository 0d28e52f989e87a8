#include "canvas/paintscene.h"
#include "clienthouse.h"
#include "invitation/invitationdialog.h"
#include "invitation/invitetree.h"
#include "plugin/kelvor.h"
#include "protocol/messagewriter.h"
#include "row.h"
#include "strokesamples.h"

#include <algorithm>
#include <memory>

namespace {

constexpr char acceptKind = 13;
constexpr char pongKind = 23;
constexpr double longestStep = 0.050;
const std::vector<int> participantCounts{2, 8, 32, 128};
const std::vector<int> clientCounts{10, 1000, 5000};

invitationdialog* lobby() { return static_cast<invitationdialog*>(clienthouse::window("invitationdialog")); }

/// A controller on a server for each of some numbers of others. One window is open at a time.
class crowds {
public:
    explicit crowds(const std::vector<int>& counts)
        : client(counts)
        , counts(counts)
    {
        controller.setPluginCommandID("id");
    }

    int others(std::size_t server) const { return counts[server]; }

    void receive(std::size_t server, const QByteArray& message)
    {
        controller.handlePluginCommand(server + 1, QString::fromLatin1("kelvor"), message.constData());
        client.host.sent.clear();
    }

    void openLobby(std::size_t server)
    {
        controller.openSession(server + 1);
        clienthouse::settle();
    }

    /// Closes what is open.
    void close()
    {
        for (const char* each : {"invitationdialog", "whiteboard"}) {
            if (QDialog* window = clienthouse::window(each))
                window->close();
        }
        clienthouse::settle();
        client.host.sent.clear();
    }

    /// A lobby in which all others but the last have accepted.
    void gather(std::size_t server)
    {
        close();
        openLobby(server);
        clienthouse::inviteAll();
        for (int other = 2; other <= counts[server]; ++other)
            receive(server, clienthouse::message(acceptKind, other));
        clienthouse::settle();
        if (lobby()->accepted().size() != counts[server] - 1)
            qFatal("a lobby of %d has %d in it", counts[server], lobby()->accepted().size());
    }

    /// A session with all others.
    void startSession(std::size_t server)
    {
        gather(server);
        receive(server, clienthouse::message(acceptKind, counts[server] + 1));
        lobby()->accept();
        clienthouse::settle();
        client.host.sent.clear();
    }

    fakehost& host() { return client.host; }

private:
    clienthouse client;
    std::vector<int> counts;
    kelvor controller{client.host.table()};
};

using crowdwork = void (*)(crowds& people, std::size_t server);

/// The same work on each server, with an amount that the number of others gives.
row growing(const std::string& name, const std::vector<int>& counts, const std::string& unit, double (*amount)(int),
            crowdwork prepare, crowdwork work, double step = longestStep)
{
    const auto make = [=] {
        const auto people = std::make_shared<crowds>(counts);
        std::vector<contender> all;
        for (std::size_t server = 0; server < counts.size(); ++server) {
            all.push_back({std::to_string(counts[server]), [=] { work(*people, server); },
                           [=] { prepare(*people, server); }, 1, false, amount(counts[server])});
        }
        return all;
    };
    row grown{"growth: " + name, make, {}, 3};
    grown.growsBy = unit;
    grown.longestStep = step;
    return grown;
}

double each(int others) { return others; }
double invitedOf(int others) { return std::min(others, clienthouse::channelSize); }

void close(crowds& people, std::size_t) { people.close(); }

void openOnly(crowds& people, std::size_t server)
{
    people.close();
    people.openLobby(server);
}

void gather(crowds& people, std::size_t server) { people.gather(server); }

void lastAccepts(crowds& people, std::size_t server)
{
    people.receive(server, clienthouse::message(acceptKind, people.others(server) + 1));
}

void startSession(crowds& people, std::size_t server) { people.startSession(server); }

void paintBatch(crowds& people, std::size_t)
{
    auto* scene = static_cast<paintscene*>(clienthouse::child("whiteboard", "paintscene"));
    const QList<QPoint> points = strokesamples::points();
    for (int batch = 0; batch < 100; ++batch) {
        emit scene->paintDataAvailable(kelvortool::pencil, points);
        people.host().sent.clear();
    }
}

void receiveBatch(crowds& people, std::size_t server)
{
    drawmessage message = strokesamples::message(1);
    // Who is looked up last.
    message.sender = static_cast<anyID>(people.others(server) + 1);
    const QByteArray bytes = wire::write(message);
    for (int batch = 0; batch < 100; ++batch)
        people.receive(server, bytes);
}

void openLobby(crowds& people, std::size_t server) { people.openLobby(server); }

void everyPong(crowds& people, std::size_t server)
{
    for (int other = 0; other < people.others(server); ++other)
        people.receive(server, clienthouse::message(pongKind, other + 2));
    clienthouse::settle();
}

void inviteChannel(crowds& people, std::size_t)
{
    auto* tree = lobby()->findChild<invitetree*>();
    tree->clearSelection();
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        tree->topLevelItem(i)->setSelected(i == 1);
    lobby()->invite();
    people.host().sent.clear();
    clienthouse::settle();
}

} // namespace

std::vector<row> crowdGrowthRows()
{
    return {
        growing("lobby: one more accepts", participantCounts, "participants", each, gather, lastAccepts),
        growing("100 batches sent", participantCounts, "participants", each, startSession, paintBatch),
        growing("100 batches received", participantCounts, "participants", each, startSession, receiveBatch),
        growing("lobby opened and painted", clientCounts, "clients", each, close, openLobby),
        growing("pong from each", clientCounts, "clients", each, openOnly, everyPong),
        growing("channel of up to 500 invited", clientCounts, "invited", invitedOf, openOnly, inviteChannel),
    };
}

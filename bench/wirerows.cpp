#include "pictures.h"
#include "protocol/messagereader.h"
#include "protocol/messagewriter.h"
#include "row.h"
#include "strokesamples.h"
#include "tests/protocol/literalwire.h"

#include <benchmark/benchmark.h>

#include <memory>

std::vector<row> wireRows()
{
    const auto reading = []() -> std::vector<contender> {
        const auto bytes = std::make_shared<QByteArray>(wire::write(strokesamples::message(5.5)));
        const auto read = [bytes] { benchmark::DoNotOptimize(wire::readDraw(bytes->constData())); };
        const auto readLiteral = [bytes] { benchmark::DoNotOptimize(literal::readDraw(bytes->constData())); };
        return {{"product", read, nullptr, 2000}, {"literal", readLiteral, nullptr, 200}};
    };
    const auto writing = []() -> std::vector<contender> {
        const auto message = std::make_shared<drawmessage>(strokesamples::message(5.5));
        const auto write = [message] { benchmark::DoNotOptimize(wire::write(*message)); };
        const auto writeLiteral = [message] { benchmark::DoNotOptimize(literal::write(*message)); };
        return {{"product", write, nullptr, 2000}, {"literal", writeLiteral, nullptr, 200}};
    };
    return {
        {"wire/read",
         reading,
         {{"Reading a draw of 20 points: split and section", quantity::seconds, "literal", "product",
           claim::side::atLeast, 12},
          {"Reading a draw of 20 points: instructions", quantity::instructions, "product", "", claim::side::atMost,
           10000}}},
        {"wire/write",
         writing,
         {{"Writing a draw of 20 points: arg a point", quantity::seconds, "literal", "product", claim::side::atLeast,
           7}}},
    };
}

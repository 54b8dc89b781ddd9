#pragma once

#include <nlohmann/json.hpp>

namespace kelmora::host {

// Keys keep the order they were written in, both in what the program reads
// and in what it prints, so that events read like the calls they stand for.
using Json = nlohmann::ordered_json;

}  // namespace kelmora::host

#pragma once

#include "hostkit/BadInput.h"
#include "hostkit/FormatSettings.h"
#include "hostkit/Json.h"
#include "hostkit/JsonReader.h"
#include "hostkit/Record.h"

namespace kelmora::tools {

// The host kit's pieces the program uses, by their short names.
using host::BadInput;
using host::FormatSettings;
using host::Json;
using host::JsonReader;
using host::Record;

}  // namespace kelmora::tools

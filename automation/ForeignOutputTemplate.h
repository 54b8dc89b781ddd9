#pragma once

#include "automation/ForeignAdapter.h"
#include "surface/OutputTemplate.h"

namespace kelmora {

// An output template of a host that answers only by name.
class ForeignOutputTemplate : public OutputTemplate, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  bool isURL(std::string& text) override;
};

}  // namespace kelmora

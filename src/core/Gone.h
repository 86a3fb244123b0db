#pragma once

#include "core/InTheWay.h"

/// What was to be changed is there no more: another workstation has deleted it, and trying again
/// can't help.
class Gone final : public InTheWay
{
public:
    using InTheWay::InTheWay;
};

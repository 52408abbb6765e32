// What the misbehaving module does wrong, chosen by its first parameter.
#pragma once

#include "host_api/basic_types.h"

constexpr int kMisdeedParam = 1;
constexpr int kLayerParam = 2;
constexpr int kCustomParam = 3;
constexpr int kNumberParam = 4;
constexpr int kCustomBytes = 24;

enum Misdeed : A_long {
  kBehave = 1,  ///< fills the output with opaque grey of the number parameter
  kKeepSuite,
  kReleaseTwice,
  kKeepHandle,
  kDisposeTwice,
  kUseDisposedHandle,
  kKeepLock,
  kUnlockTwice,
  kDisposeLocked,
  kWritePastHandle,
  kKeepCheckout,
  kCheckInTwice,
  kCheckInCopy,  ///< allowed: a copy of the record is checked in
  kCheckInNothing,
  kWriteBeforeOutput,
  kWriteBehindOutput,
  kWritePadding,
  kWriteInput,
  kWriteLayer,
  kWriteParam,
  kThrowException,
  kReturnError,
  kEndlessMessage,
  kChangeSize,
  kCallEmptySlot,
  kCallEmptyCallback,
  kWrongEffectRef,
  kCallFromOtherThread,
  kKeepStream,
  kKeepStreamValue,
  kUseDisposedStream,
  kWrongPluginId,
  kKeepEffectRef,
  kKeepWorld,
  kKeepBlock,
  kAskUnknownFormat,
  kKeepParamLocked,
  kDisposeParam,
  kAddParamInRender,
  kMisdeedEnd,
};

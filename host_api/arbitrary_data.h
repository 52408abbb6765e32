// The callback records of parameters whose values are blocks owned by the effect.
#pragma once

#include "host_api/basic_types.h"

enum : A_long {  // PF_FunctionSelector
  PF_Arbitrary_NEW_FUNC = 0,
  PF_Arbitrary_DISPOSE_FUNC = 1,
  PF_Arbitrary_COPY_FUNC = 2,
  PF_Arbitrary_FLAT_SIZE_FUNC = 3,
  PF_Arbitrary_FLATTEN_FUNC = 4,
  PF_Arbitrary_UNFLATTEN_FUNC = 5,
  PF_Arbitrary_INTERP_FUNC = 6,
  PF_Arbitrary_COMPARE_FUNC = 7,
  PF_Arbitrary_PRINT_SIZE_FUNC = 8,
  PF_Arbitrary_PRINT_FUNC = 9,
  PF_Arbitrary_SCAN_FUNC = 10,
};

enum : A_long {  // PF_ArbCompareResult
  PF_ArbCompare_EQUAL = 0,
  PF_ArbCompare_LESS = 1,
  PF_ArbCompare_MORE = 2,
  PF_ArbCompare_NOT_EQUAL = 3,
};

enum : A_long {  // PF_ArbPrintFlags
  PF_ArbPrint_NONE = 0,
  PF_ArbPrint_ABBREVIATED = 1,
};

extern "C" {

struct PF_ArbParamsExtra_new {
  void* refconPV;
  PF_ArbitraryH* arbPH;
};

struct PF_ArbParamsExtra_dispose {
  void* refconPV;
  PF_ArbitraryH arbH;
};

struct PF_ArbParamsExtra_copy {
  void* refconPV;
  PF_ArbitraryH src_arbH;
  PF_ArbitraryH* dst_arbPH;
};

struct PF_ArbParamsExtra_flat_size {
  void* refconPV;
  PF_ArbitraryH arbH;
  A_u_long* flat_data_sizePLu;
};

struct PF_ArbParamsExtra_flatten {
  void* refconPV;
  PF_ArbitraryH arbH;
  A_u_long buf_sizeLu;
  void* flat_dataPV;
};

struct PF_ArbParamsExtra_unflatten {
  void* refconPV;
  A_u_long buf_sizeLu;
  const void* flat_dataPV;
  PF_ArbitraryH* arbPH;
};

struct PF_ArbParamsExtra_interp {
  void* refconPV;
  PF_ArbitraryH left_arbH;
  PF_ArbitraryH right_arbH;
  PF_FpLong tF;
  PF_ArbitraryH* interpPH;
};

struct PF_ArbParamsExtra_compare {
  void* refconPV;
  PF_ArbitraryH a_arbH;
  PF_ArbitraryH b_arbH;
  PF_ArbCompareResult* compareP;
};

struct PF_ArbParamsExtra_print_size {
  void* refconPV;
  PF_ArbitraryH arbH;
  A_u_long* print_sizePLu;
};

struct PF_ArbParamsExtra_print {
  void* refconPV;
  PF_ArbPrintFlags print_flags;
  PF_ArbitraryH arbH;
  A_u_long print_sizeLu;
  A_char* print_bufferPC;
};

struct PF_ArbParamsExtra_scan {
  void* refconPV;
  const A_char* bufPC;
  A_u_long bytes_to_scanLu;
  PF_ArbitraryH* arbPH;
};

union PF_ArbParamsExtra_u {
  PF_ArbParamsExtra_new new_func_params;
  PF_ArbParamsExtra_dispose dispose_func_params;
  PF_ArbParamsExtra_copy copy_func_params;
  PF_ArbParamsExtra_flat_size flat_size_func_params;
  PF_ArbParamsExtra_flatten flatten_func_params;
  PF_ArbParamsExtra_unflatten unflatten_func_params;
  PF_ArbParamsExtra_interp interp_func_params;
  PF_ArbParamsExtra_compare compare_func_params;
  PF_ArbParamsExtra_print_size print_size_func_params;
  PF_ArbParamsExtra_print print_func_params;
  PF_ArbParamsExtra_scan scan_func_params;
};

struct PF_ArbParamsExtra {
  PF_FunctionSelector which_function;
  A_short id;
  A_short padding;
  PF_ArbParamsExtra_u u;
};

}  // extern "C"

#include "host/engine/module.h"

namespace vantle::host {
namespace {

std::string Text(const A_u_char* text) {
  return text == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(text));
}

A_Err NoteRegistration(PF_PluginDataPtr token, const A_u_char* name, const A_u_char* matchName,
                       const A_u_char* category, const A_u_char* entryPoint, A_long kind, A_long apiMajor,
                       A_long apiMinor, A_long reservedInfo) {
  auto* registration = reinterpret_cast<Registration*>(token);
  if (registration == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  registration->name = Text(name);
  registration->matchName = Text(matchName);
  registration->category = Text(category);
  registration->entryPoint = Text(entryPoint);
  registration->kind = kind;
  registration->apiMajor = apiMajor;
  registration->apiMinor = apiMinor;
  registration->reservedInfo = reservedInfo;
  ++registration->calls;
  return PF_Err_NONE;
}

}  // namespace

Module MakeLinkedModule(PluginDataEntryProc registerEffect, EffectMainProc effectMain) {
  return {"(linked)", nullptr, registerEffect, effectMain};
}

Registration RegisterModule(const Module& module, SPBasicSuite* basicSuite) {
  Registration registration;
  auto* token = reinterpret_cast<PF_PluginDataPtr>(&registration);
  registration.result = module.registerEffect(token, NoteRegistration, basicSuite, "Headless Host", "1.2");
  return registration;
}

}  // namespace vantle::host

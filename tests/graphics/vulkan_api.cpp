#include "tests/graphics/vulkan_api.h"

#include <dlfcn.h>
#include <stdexcept>

namespace vantle::test {

namespace {

/// A driver's own way to the calls, when it is loaded without a loader.
constexpr const char* kEntries[] = {"vkGetInstanceProcAddr", "vk_icdGetInstanceProcAddr"};

PFN_vkGetInstanceProcAddr FindEntry(const char* library) {
  void* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) return nullptr;
  for (const char* name : kEntries) {
    if (void* const entry = dlsym(handle, name)) return reinterpret_cast<PFN_vkGetInstanceProcAddr>(entry);
  }
  return nullptr;
}

template <class Call>
void Find(const VulkanApi& api, VkInstance instance, const char* name, Call* call) {
  *call = reinterpret_cast<Call>(api.GetInstanceProcAddr(instance, name));
  if (*call == nullptr) throw std::runtime_error(std::string("the Vulkan driver has no ") + name);
}

}  // namespace

VulkanApi LoadVulkan(const std::string& library) {
  VulkanApi api{};
  const char* const systems[] = {"libvulkan.so.1", "libvulkan.so", "libGLX_nvidia.so.0",
                                 "libEGL_nvidia.so.0"};
  if (!library.empty()) api.GetInstanceProcAddr = FindEntry(library.c_str());
  for (const char* name : systems) {
    if (library.empty() && api.GetInstanceProcAddr == nullptr) api.GetInstanceProcAddr = FindEntry(name);
  }
  if (api.GetInstanceProcAddr == nullptr) throw std::runtime_error("no Vulkan loader: install libvulkan1");
  Find(api, nullptr, "vkCreateInstance", &api.CreateInstance);
  return api;
}

void LoadInstanceCalls(VulkanApi* api, VkInstance instance) {
  const auto find = [&](const char* name, auto* call) { Find(*api, instance, name, call); };
  find("vkDestroyInstance", &api->DestroyInstance);
  find("vkEnumeratePhysicalDevices", &api->EnumeratePhysicalDevices);
  find("vkGetPhysicalDeviceProperties2", &api->GetPhysicalDeviceProperties2);
  find("vkGetPhysicalDeviceMemoryProperties", &api->GetPhysicalDeviceMemoryProperties);
  find("vkGetPhysicalDeviceQueueFamilyProperties", &api->GetPhysicalDeviceQueueFamilyProperties);
  find("vkCreateDevice", &api->CreateDevice);
  find("vkDestroyDevice", &api->DestroyDevice);
  find("vkGetDeviceQueue", &api->GetDeviceQueue);
  find("vkCreateBuffer", &api->CreateBuffer);
  find("vkDestroyBuffer", &api->DestroyBuffer);
  find("vkGetBufferMemoryRequirements", &api->GetBufferMemoryRequirements);
  find("vkAllocateMemory", &api->AllocateMemory);
  find("vkFreeMemory", &api->FreeMemory);
  find("vkBindBufferMemory", &api->BindBufferMemory);
  find("vkMapMemory", &api->MapMemory);
  find("vkCreateShaderModule", &api->CreateShaderModule);
  find("vkDestroyShaderModule", &api->DestroyShaderModule);
  find("vkCreateDescriptorSetLayout", &api->CreateDescriptorSetLayout);
  find("vkDestroyDescriptorSetLayout", &api->DestroyDescriptorSetLayout);
  find("vkCreatePipelineLayout", &api->CreatePipelineLayout);
  find("vkDestroyPipelineLayout", &api->DestroyPipelineLayout);
  find("vkCreateComputePipelines", &api->CreateComputePipelines);
  find("vkDestroyPipeline", &api->DestroyPipeline);
  find("vkCreateDescriptorPool", &api->CreateDescriptorPool);
  find("vkDestroyDescriptorPool", &api->DestroyDescriptorPool);
  find("vkAllocateDescriptorSets", &api->AllocateDescriptorSets);
  find("vkUpdateDescriptorSets", &api->UpdateDescriptorSets);
  find("vkCreateCommandPool", &api->CreateCommandPool);
  find("vkDestroyCommandPool", &api->DestroyCommandPool);
  find("vkAllocateCommandBuffers", &api->AllocateCommandBuffers);
  find("vkBeginCommandBuffer", &api->BeginCommandBuffer);
  find("vkEndCommandBuffer", &api->EndCommandBuffer);
  find("vkCmdBindPipeline", &api->CmdBindPipeline);
  find("vkCmdBindDescriptorSets", &api->CmdBindDescriptorSets);
  find("vkCmdCopyBuffer", &api->CmdCopyBuffer);
  find("vkCmdPipelineBarrier", &api->CmdPipelineBarrier);
  find("vkCmdDispatch", &api->CmdDispatch);
  find("vkCmdResetQueryPool", &api->CmdResetQueryPool);
  find("vkCmdWriteTimestamp", &api->CmdWriteTimestamp);
  find("vkCreateQueryPool", &api->CreateQueryPool);
  find("vkDestroyQueryPool", &api->DestroyQueryPool);
  find("vkGetQueryPoolResults", &api->GetQueryPoolResults);
  find("vkQueueSubmit", &api->QueueSubmit);
  find("vkQueueWaitIdle", &api->QueueWaitIdle);
}

void Check(VkResult result, const char* call) {
  if (result == VK_SUCCESS) return;
  throw std::runtime_error(std::string(call) + " failed with " + std::to_string(static_cast<int>(result)));
}

}  // namespace vantle::test

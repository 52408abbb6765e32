#include "tests/graphics/vulkan_device.h"

#include <stdexcept>

namespace vantle::test {

namespace {

VkInstance MakeInstance(const VulkanApi& api) {
  VkApplicationInfo application{};
  application.sType = VK_STRUCTURE_TYPE_APPLICATION_INFO;
  application.pApplicationName = "kernel_proof";
  application.apiVersion = VK_API_VERSION_1_1;
  VkInstanceCreateInfo info{};
  info.sType = VK_STRUCTURE_TYPE_INSTANCE_CREATE_INFO;
  info.pApplicationInfo = &application;
  VkInstance instance = VK_NULL_HANDLE;
  const VkResult result = api.CreateInstance(&info, nullptr, &instance);
  if (result == VK_ERROR_INCOMPATIBLE_DRIVER) {
    throw std::runtime_error("no Vulkan driver: install the graphics processor's, or mesa-vulkan-drivers");
  }
  Check(result, "vkCreateInstance");
  return instance;
}

/// Real graphics processors first.
int Rank(VkPhysicalDeviceType type) {
  switch (type) {
    case VK_PHYSICAL_DEVICE_TYPE_DISCRETE_GPU:
      return 0;
    case VK_PHYSICAL_DEVICE_TYPE_INTEGRATED_GPU:
      return 1;
    case VK_PHYSICAL_DEVICE_TYPE_VIRTUAL_GPU:
      return 2;
    default:
      return 3;
  }
}

bool IsWanted(const std::string& wanted, size_t index, const char* name) {
  if (wanted.empty() || wanted == std::to_string(index)) return true;
  return std::string(name).find(wanted) != std::string::npos;
}

VkMemoryPropertyFlags Needed(MemoryKind kind) {
  if (kind == MemoryKind::kDevice) return VK_MEMORY_PROPERTY_DEVICE_LOCAL_BIT;
  return VK_MEMORY_PROPERTY_HOST_VISIBLE_BIT | VK_MEMORY_PROPERTY_HOST_COHERENT_BIT;
}

}  // namespace

VulkanDevice::VulkanDevice(const std::string& library, const std::string& wanted) {
  api_ = LoadVulkan(library);
  instance_ = MakeInstance(api_);
  LoadInstanceCalls(&api_, instance_);
  ChooseDevice(wanted);
  ChooseQueue();
  api_.GetPhysicalDeviceMemoryProperties(physical_, &memory_);

  const float priority = 1.0f;
  VkDeviceQueueCreateInfo queue{};
  queue.sType = VK_STRUCTURE_TYPE_DEVICE_QUEUE_CREATE_INFO;
  queue.queueFamilyIndex = queueFamily_;
  queue.queueCount = 1;
  queue.pQueuePriorities = &priority;
  VkDeviceCreateInfo info{};
  info.sType = VK_STRUCTURE_TYPE_DEVICE_CREATE_INFO;
  info.queueCreateInfoCount = 1;
  info.pQueueCreateInfos = &queue;
  Check(api_.CreateDevice(physical_, &info, nullptr, &device_), "vkCreateDevice");
  api_.GetDeviceQueue(device_, queueFamily_, 0, &queue_);
}

VulkanDevice::~VulkanDevice() {
  if (device_ != VK_NULL_HANDLE) api_.DestroyDevice(device_, nullptr);
  if (instance_ != VK_NULL_HANDLE) api_.DestroyInstance(instance_, nullptr);
}

void VulkanDevice::ChooseDevice(const std::string& wanted) {
  uint32_t count = 0;
  Check(api_.EnumeratePhysicalDevices(instance_, &count, nullptr), "vkEnumeratePhysicalDevices");
  std::vector<VkPhysicalDevice> devices(count);
  Check(api_.EnumeratePhysicalDevices(instance_, &count, devices.data()), "vkEnumeratePhysicalDevices");
  int best = 4;
  for (size_t i = 0; i < count; ++i) {
    VkPhysicalDeviceDriverProperties driver{};
    driver.sType = VK_STRUCTURE_TYPE_PHYSICAL_DEVICE_DRIVER_PROPERTIES;
    VkPhysicalDeviceProperties2 properties{};
    properties.sType = VK_STRUCTURE_TYPE_PHYSICAL_DEVICE_PROPERTIES_2;
    properties.pNext = &driver;
    api_.GetPhysicalDeviceProperties2(devices[i], &properties);
    const VkPhysicalDeviceProperties& p = properties.properties;
    if (!IsWanted(wanted, i, p.deviceName) || Rank(p.deviceType) >= best) continue;
    best = Rank(p.deviceType);
    physical_ = devices[i];
    description_ = std::string(p.deviceName) + ", driver " + driver.driverName + " " + driver.driverInfo;
    timestampNanoseconds_ = static_cast<double>(p.limits.timestampPeriod);
  }
  if (physical_ == VK_NULL_HANDLE) {
    throw std::runtime_error(count == 0 ? "the Vulkan driver has no device" : "no device " + wanted);
  }
}

void VulkanDevice::ChooseQueue() {
  uint32_t count = 0;
  api_.GetPhysicalDeviceQueueFamilyProperties(physical_, &count, nullptr);
  std::vector<VkQueueFamilyProperties> families(count);
  api_.GetPhysicalDeviceQueueFamilyProperties(physical_, &count, families.data());
  for (uint32_t i = 0; i < count; ++i) {
    if ((families[i].queueFlags & VK_QUEUE_COMPUTE_BIT) == 0) continue;
    queueFamily_ = i;
    if (families[i].timestampValidBits == 0) timestampNanoseconds_ = 0.0;
    return;
  }
  throw std::runtime_error("the Vulkan device computes nothing");
}

uint32_t VulkanDevice::FindMemory(uint32_t allowed, MemoryKind kind) const {
  // Reading back is fast from memory that the processor caches, where the device has such.
  VkMemoryPropertyFlags flags = Needed(kind);
  if (kind == MemoryKind::kReadBack) flags |= VK_MEMORY_PROPERTY_HOST_CACHED_BIT;
  for (const VkMemoryPropertyFlags wanted : {flags, Needed(kind)}) {
    for (uint32_t i = 0; i < memory_.memoryTypeCount; ++i) {
      const bool fits = (memory_.memoryTypes[i].propertyFlags & wanted) == wanted;
      if (fits && (allowed >> i & 1u) != 0) return i;
    }
  }
  throw std::runtime_error("the Vulkan device has no fitting memory");
}

VulkanBuffer VulkanDevice::MakeBuffer(size_t bytes, VkBufferUsageFlags usage, MemoryKind kind) const {
  VulkanBuffer result;
  result.bytes = bytes;
  VkBufferCreateInfo info{};
  info.sType = VK_STRUCTURE_TYPE_BUFFER_CREATE_INFO;
  info.size = bytes;
  info.usage = usage;
  Check(api_.CreateBuffer(device_, &info, nullptr, &result.buffer), "vkCreateBuffer");

  VkMemoryRequirements needs{};
  api_.GetBufferMemoryRequirements(device_, result.buffer, &needs);
  VkMemoryAllocateInfo memory{};
  memory.sType = VK_STRUCTURE_TYPE_MEMORY_ALLOCATE_INFO;
  memory.allocationSize = needs.size;
  memory.memoryTypeIndex = FindMemory(needs.memoryTypeBits, kind);
  Check(api_.AllocateMemory(device_, &memory, nullptr, &result.memory), "vkAllocateMemory");
  Check(api_.BindBufferMemory(device_, result.buffer, result.memory, 0), "vkBindBufferMemory");
  if (kind != MemoryKind::kDevice) {
    Check(api_.MapMemory(device_, result.memory, 0, VK_WHOLE_SIZE, 0, &result.mapped), "vkMapMemory");
  }
  return result;
}

void VulkanDevice::Free(VulkanBuffer* buffer) const {
  api_.DestroyBuffer(device_, buffer->buffer, nullptr);
  api_.FreeMemory(device_, buffer->memory, nullptr);
  *buffer = {};
}

}  // namespace vantle::test

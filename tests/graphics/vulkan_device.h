// One device for computing, and buffers on it.
#pragma once

#include "tests/graphics/vulkan_api.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantle::test {

/// A buffer with memory of its own. `mapped` is null for memory that the processor cannot see.
struct VulkanBuffer {
  VkBuffer buffer = VK_NULL_HANDLE;
  VkDeviceMemory memory = VK_NULL_HANDLE;
  VkDeviceSize bytes = 0;
  void* mapped = nullptr;
};

enum class MemoryKind { kDevice, kUpload, kReadBack };

class VulkanDevice {
 public:
  /// `wanted` is a device's number, a part of its name, or empty: the first real graphics processor, or
  /// whatever there is. Throws std::runtime_error.
  VulkanDevice(const std::string& library, const std::string& wanted);
  ~VulkanDevice();
  VulkanDevice(const VulkanDevice&) = delete;
  VulkanDevice& operator=(const VulkanDevice&) = delete;

  const VulkanApi& api() const { return api_; }
  VkDevice device() const { return device_; }
  VkQueue queue() const { return queue_; }
  uint32_t queueFamily() const { return queueFamily_; }

  /// The chosen device's name and driver, for people.
  const std::string& description() const { return description_; }

  /// Nanoseconds of a timestamp's step; 0 where the device cannot measure.
  double timestampNanoseconds() const { return timestampNanoseconds_; }

  VulkanBuffer MakeBuffer(size_t bytes, VkBufferUsageFlags usage, MemoryKind kind) const;
  void Free(VulkanBuffer* buffer) const;

 private:
  void ChooseDevice(const std::string& wanted);
  void ChooseQueue();
  uint32_t FindMemory(uint32_t allowed, MemoryKind kind) const;

  VulkanApi api_{};
  VkInstance instance_ = VK_NULL_HANDLE;
  VkPhysicalDevice physical_ = VK_NULL_HANDLE;
  VkDevice device_ = VK_NULL_HANDLE;
  VkQueue queue_ = VK_NULL_HANDLE;
  uint32_t queueFamily_ = 0;
  double timestampNanoseconds_ = 0.0;
  std::string description_;
  VkPhysicalDeviceMemoryProperties memory_{};
};

}  // namespace vantle::test

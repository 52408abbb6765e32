// The compiled kernel on a Vulkan device, fed and read as the effect does it: buffers made for one frame,
// uploaded, one dispatch, and the output read back.
#pragma once

#include "tests/graphics/kernel_scenes.h"
#include "tests/graphics/vulkan_device.h"

#include <cstdint>
#include <vector>

namespace vantle::test {

struct KernelTimes {
  double dispatch = 0.0;   ///< milliseconds on the device; 0 where it cannot measure
  double roundTrip = 0.0;  ///< milliseconds from the lists to the pixels in memory
};

class VulkanKernel {
 public:
  /// `code` is the kernel as SPIR-V. Throws std::runtime_error, as all of these do.
  VulkanKernel(const VulkanDevice& device, const std::vector<uint32_t>& code);
  ~VulkanKernel();
  VulkanKernel(const VulkanKernel&) = delete;
  VulkanKernel& operator=(const VulkanKernel&) = delete;

  /// Four floats a pixel: alpha, red, green, blue.
  std::vector<float> Draw(const KernelInput& input, KernelTimes* times = nullptr) const;

 private:
  void MakePipeline(const std::vector<uint32_t>& code);
  void MakePools();
  void Record(const std::vector<VulkanBuffer>& uploads, const std::vector<VulkanBuffer>& buffers,
              const VulkanBuffer& readBack, const RenderParamsCB& params) const;
  void Bind(const std::vector<VulkanBuffer>& buffers) const;
  void Submit() const;
  double DispatchMilliseconds() const;

  const VulkanDevice& device_;
  const VulkanApi& api_;
  VkDescriptorSetLayout setLayout_ = VK_NULL_HANDLE;
  VkPipelineLayout layout_ = VK_NULL_HANDLE;
  VkShaderModule module_ = VK_NULL_HANDLE;
  VkPipeline pipeline_ = VK_NULL_HANDLE;
  VkDescriptorPool descriptorPool_ = VK_NULL_HANDLE;
  VkDescriptorSet set_ = VK_NULL_HANDLE;
  VkCommandPool commandPool_ = VK_NULL_HANDLE;
  VkCommandBuffer commands_ = VK_NULL_HANDLE;
  VkQueryPool queries_ = VK_NULL_HANDLE;
};

}  // namespace vantle::test

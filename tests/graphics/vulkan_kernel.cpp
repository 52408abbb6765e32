#include "tests/graphics/vulkan_kernel.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace vantle::test {

namespace {

/// Bindings as the kernel's registers are numbered: b0, t0..t2 from 1 on, u0 at 4.
constexpr uint32_t kBindings = 5;
constexpr uint32_t kOutput = 4;

VkDescriptorType TypeOf(uint32_t binding) {
  return binding == 0 ? VK_DESCRIPTOR_TYPE_UNIFORM_BUFFER : VK_DESCRIPTOR_TYPE_STORAGE_BUFFER;
}

VkBufferUsageFlags UsageOf(uint32_t binding) {
  return binding == 0 ? VK_BUFFER_USAGE_UNIFORM_BUFFER_BIT : VK_BUFFER_USAGE_STORAGE_BUFFER_BIT;
}

struct Bytes {
  const void* data;
  size_t size;
};

template <class T>
Bytes BytesOf(const T* values, size_t count) {
  return {values, count * sizeof(T)};
}

/// What is uploaded for bindings 0 to 3. A list without entries is one zero.
std::vector<Bytes> UploadsOf(const KernelInput& input) {
  static const kernel::Particle kNothing{};
  const size_t count = input.particles.size();
  return {BytesOf(&input.params, 1),
          count > 0 ? BytesOf(input.particles.data(), count) : BytesOf(&kNothing, 1),
          BytesOf(input.lists.offsets.data(), input.lists.offsets.size()),
          BytesOf(input.lists.indices.data(), input.lists.indices.size())};
}

VkMemoryBarrier Barrier(VkAccessFlags before, VkAccessFlags after) {
  VkMemoryBarrier barrier{};
  barrier.sType = VK_STRUCTURE_TYPE_MEMORY_BARRIER;
  barrier.srcAccessMask = before;
  barrier.dstAccessMask = after;
  return barrier;
}

uint32_t Groups(int32_t pixels) {
  return (static_cast<uint32_t>(pixels) + 15) / 16;
}

}  // namespace

VulkanKernel::VulkanKernel(const VulkanDevice& device, const std::vector<uint32_t>& code)
    : device_(device), api_(device.api()) {
  MakePipeline(code);
  MakePools();
}

VulkanKernel::~VulkanKernel() {
  const VkDevice d = device_.device();
  api_.DestroyQueryPool(d, queries_, nullptr);
  api_.DestroyCommandPool(d, commandPool_, nullptr);
  api_.DestroyDescriptorPool(d, descriptorPool_, nullptr);
  api_.DestroyPipeline(d, pipeline_, nullptr);
  api_.DestroyShaderModule(d, module_, nullptr);
  api_.DestroyPipelineLayout(d, layout_, nullptr);
  api_.DestroyDescriptorSetLayout(d, setLayout_, nullptr);
}

void VulkanKernel::MakePipeline(const std::vector<uint32_t>& code) {
  const VkDevice d = device_.device();
  VkDescriptorSetLayoutBinding bindings[kBindings] = {};
  for (uint32_t i = 0; i < kBindings; ++i) {
    bindings[i] = {i, TypeOf(i), 1, VK_SHADER_STAGE_COMPUTE_BIT, nullptr};
  }
  VkDescriptorSetLayoutCreateInfo set{};
  set.sType = VK_STRUCTURE_TYPE_DESCRIPTOR_SET_LAYOUT_CREATE_INFO;
  set.bindingCount = kBindings;
  set.pBindings = bindings;
  Check(api_.CreateDescriptorSetLayout(d, &set, nullptr, &setLayout_), "vkCreateDescriptorSetLayout");

  VkPipelineLayoutCreateInfo layout{};
  layout.sType = VK_STRUCTURE_TYPE_PIPELINE_LAYOUT_CREATE_INFO;
  layout.setLayoutCount = 1;
  layout.pSetLayouts = &setLayout_;
  Check(api_.CreatePipelineLayout(d, &layout, nullptr, &layout_), "vkCreatePipelineLayout");

  VkShaderModuleCreateInfo module{};
  module.sType = VK_STRUCTURE_TYPE_SHADER_MODULE_CREATE_INFO;
  module.codeSize = code.size() * sizeof(uint32_t);
  module.pCode = code.data();
  Check(api_.CreateShaderModule(d, &module, nullptr, &module_), "vkCreateShaderModule");

  VkComputePipelineCreateInfo pipeline{};
  pipeline.sType = VK_STRUCTURE_TYPE_COMPUTE_PIPELINE_CREATE_INFO;
  pipeline.stage.sType = VK_STRUCTURE_TYPE_PIPELINE_SHADER_STAGE_CREATE_INFO;
  pipeline.stage.stage = VK_SHADER_STAGE_COMPUTE_BIT;
  pipeline.stage.module = module_;
  pipeline.stage.pName = "CSMain";
  pipeline.layout = layout_;
  Check(api_.CreateComputePipelines(d, VK_NULL_HANDLE, 1, &pipeline, nullptr, &pipeline_),
        "vkCreateComputePipelines");
}

void VulkanKernel::MakePools() {
  const VkDevice d = device_.device();
  const VkDescriptorPoolSize sizes[] = {{VK_DESCRIPTOR_TYPE_UNIFORM_BUFFER, 1},
                                        {VK_DESCRIPTOR_TYPE_STORAGE_BUFFER, kBindings - 1}};
  VkDescriptorPoolCreateInfo descriptors{};
  descriptors.sType = VK_STRUCTURE_TYPE_DESCRIPTOR_POOL_CREATE_INFO;
  descriptors.maxSets = 1;
  descriptors.poolSizeCount = 2;
  descriptors.pPoolSizes = sizes;
  Check(api_.CreateDescriptorPool(d, &descriptors, nullptr, &descriptorPool_), "vkCreateDescriptorPool");
  VkDescriptorSetAllocateInfo set{};
  set.sType = VK_STRUCTURE_TYPE_DESCRIPTOR_SET_ALLOCATE_INFO;
  set.descriptorPool = descriptorPool_;
  set.descriptorSetCount = 1;
  set.pSetLayouts = &setLayout_;
  Check(api_.AllocateDescriptorSets(d, &set, &set_), "vkAllocateDescriptorSets");

  VkCommandPoolCreateInfo commands{};
  commands.sType = VK_STRUCTURE_TYPE_COMMAND_POOL_CREATE_INFO;
  commands.flags = VK_COMMAND_POOL_CREATE_RESET_COMMAND_BUFFER_BIT;
  commands.queueFamilyIndex = device_.queueFamily();
  Check(api_.CreateCommandPool(d, &commands, nullptr, &commandPool_), "vkCreateCommandPool");
  VkCommandBufferAllocateInfo buffer{};
  buffer.sType = VK_STRUCTURE_TYPE_COMMAND_BUFFER_ALLOCATE_INFO;
  buffer.commandPool = commandPool_;
  buffer.level = VK_COMMAND_BUFFER_LEVEL_PRIMARY;
  buffer.commandBufferCount = 1;
  Check(api_.AllocateCommandBuffers(d, &buffer, &commands_), "vkAllocateCommandBuffers");

  VkQueryPoolCreateInfo queries{};
  queries.sType = VK_STRUCTURE_TYPE_QUERY_POOL_CREATE_INFO;
  queries.queryType = VK_QUERY_TYPE_TIMESTAMP;
  queries.queryCount = 2;
  Check(api_.CreateQueryPool(d, &queries, nullptr, &queries_), "vkCreateQueryPool");
}

void VulkanKernel::Bind(const std::vector<VulkanBuffer>& buffers) const {
  VkDescriptorBufferInfo infos[kBindings];
  VkWriteDescriptorSet writes[kBindings] = {};
  for (uint32_t i = 0; i < kBindings; ++i) {
    infos[i] = {buffers[i].buffer, 0, VK_WHOLE_SIZE};
    writes[i].sType = VK_STRUCTURE_TYPE_WRITE_DESCRIPTOR_SET;
    writes[i].dstSet = set_;
    writes[i].dstBinding = i;
    writes[i].descriptorCount = 1;
    writes[i].descriptorType = TypeOf(i);
    writes[i].pBufferInfo = &infos[i];
  }
  api_.UpdateDescriptorSets(device_.device(), kBindings, writes, 0, nullptr);
}

void VulkanKernel::Record(const std::vector<VulkanBuffer>& uploads, const std::vector<VulkanBuffer>& buffers,
                          const VulkanBuffer& readBack, const RenderParamsCB& params) const {
  VkCommandBufferBeginInfo begin{};
  begin.sType = VK_STRUCTURE_TYPE_COMMAND_BUFFER_BEGIN_INFO;
  Check(api_.BeginCommandBuffer(commands_, &begin), "vkBeginCommandBuffer");
  const bool timed = device_.timestampNanoseconds() > 0.0;
  if (timed) api_.CmdResetQueryPool(commands_, queries_, 0, 2);

  // Upload.
  for (size_t i = 0; i < uploads.size(); ++i) {
    const VkBufferCopy all{0, 0, uploads[i].bytes};
    api_.CmdCopyBuffer(commands_, uploads[i].buffer, buffers[i].buffer, 1, &all);
  }
  const VkMemoryBarrier uploaded =
      Barrier(VK_ACCESS_TRANSFER_WRITE_BIT, VK_ACCESS_SHADER_READ_BIT | VK_ACCESS_UNIFORM_READ_BIT);
  api_.CmdPipelineBarrier(commands_, VK_PIPELINE_STAGE_TRANSFER_BIT, VK_PIPELINE_STAGE_COMPUTE_SHADER_BIT, 0,
                          1, &uploaded, 0, nullptr, 0, nullptr);

  // Compute.
  if (timed) api_.CmdWriteTimestamp(commands_, VK_PIPELINE_STAGE_TRANSFER_BIT, queries_, 0);
  api_.CmdBindPipeline(commands_, VK_PIPELINE_BIND_POINT_COMPUTE, pipeline_);
  api_.CmdBindDescriptorSets(commands_, VK_PIPELINE_BIND_POINT_COMPUTE, layout_, 0, 1, &set_, 0, nullptr);
  api_.CmdDispatch(commands_, Groups(params.g_width), Groups(params.g_height), 1);
  if (timed) api_.CmdWriteTimestamp(commands_, VK_PIPELINE_STAGE_COMPUTE_SHADER_BIT, queries_, 1);

  // Read back.
  const VkMemoryBarrier computed = Barrier(VK_ACCESS_SHADER_WRITE_BIT, VK_ACCESS_TRANSFER_READ_BIT);
  api_.CmdPipelineBarrier(commands_, VK_PIPELINE_STAGE_COMPUTE_SHADER_BIT, VK_PIPELINE_STAGE_TRANSFER_BIT, 0,
                          1, &computed, 0, nullptr, 0, nullptr);
  const VkBufferCopy all{0, 0, readBack.bytes};
  api_.CmdCopyBuffer(commands_, buffers[kOutput].buffer, readBack.buffer, 1, &all);
  const VkMemoryBarrier copied = Barrier(VK_ACCESS_TRANSFER_WRITE_BIT, VK_ACCESS_HOST_READ_BIT);
  api_.CmdPipelineBarrier(commands_, VK_PIPELINE_STAGE_TRANSFER_BIT, VK_PIPELINE_STAGE_HOST_BIT, 0, 1,
                          &copied, 0, nullptr, 0, nullptr);
  Check(api_.EndCommandBuffer(commands_), "vkEndCommandBuffer");
}

void VulkanKernel::Submit() const {
  VkSubmitInfo submit{};
  submit.sType = VK_STRUCTURE_TYPE_SUBMIT_INFO;
  submit.commandBufferCount = 1;
  submit.pCommandBuffers = &commands_;
  Check(api_.QueueSubmit(device_.queue(), 1, &submit, VK_NULL_HANDLE), "vkQueueSubmit");
  Check(api_.QueueWaitIdle(device_.queue()), "vkQueueWaitIdle");
}

double VulkanKernel::DispatchMilliseconds() const {
  if (!(device_.timestampNanoseconds() > 0.0)) return 0.0;
  uint64_t ticks[2] = {};
  Check(api_.GetQueryPoolResults(device_.device(), queries_, 0, 2, sizeof(ticks), ticks, sizeof(ticks[0]),
                                 VK_QUERY_RESULT_64_BIT | VK_QUERY_RESULT_WAIT_BIT),
        "vkGetQueryPoolResults");
  return static_cast<double>(ticks[1] - ticks[0]) * device_.timestampNanoseconds() * 1e-6;
}

std::vector<float> VulkanKernel::Draw(const KernelInput& input, KernelTimes* times) const {
  const size_t floats =
      static_cast<size_t>(input.params.g_width) * static_cast<size_t>(input.params.g_height) * 4;
  std::vector<float> pixels(floats);
  const auto start = std::chrono::steady_clock::now();

  // Buffers of this frame.
  std::vector<VulkanBuffer> uploads;
  std::vector<VulkanBuffer> buffers;
  for (const Bytes& bytes : UploadsOf(input)) {
    const uint32_t binding = static_cast<uint32_t>(buffers.size());
    uploads.push_back(device_.MakeBuffer(bytes.size, VK_BUFFER_USAGE_TRANSFER_SRC_BIT, MemoryKind::kUpload));
    buffers.push_back(device_.MakeBuffer(bytes.size, UsageOf(binding) | VK_BUFFER_USAGE_TRANSFER_DST_BIT,
                                         MemoryKind::kDevice));
    std::memcpy(uploads.back().mapped, bytes.data, bytes.size);
  }
  const size_t outputBytes = floats * sizeof(float);
  buffers.push_back(device_.MakeBuffer(outputBytes, UsageOf(kOutput) | VK_BUFFER_USAGE_TRANSFER_SRC_BIT,
                                       MemoryKind::kDevice));
  VulkanBuffer readBack =
      device_.MakeBuffer(outputBytes, VK_BUFFER_USAGE_TRANSFER_DST_BIT, MemoryKind::kReadBack);

  // Draw and read.
  Bind(buffers);
  Record(uploads, buffers, readBack, input.params);
  Submit();
  std::memcpy(pixels.data(), readBack.mapped, outputBytes);

  for (VulkanBuffer& buffer : uploads) device_.Free(&buffer);
  for (VulkanBuffer& buffer : buffers) device_.Free(&buffer);
  device_.Free(&readBack);
  const std::chrono::duration<double, std::milli> passed = std::chrono::steady_clock::now() - start;
  if (times != nullptr) *times = {DispatchMilliseconds(), passed.count()};
  return pixels;
}

}  // namespace vantle::test

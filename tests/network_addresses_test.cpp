// Network addresses: append, count, index and the two getters.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "vantrel/ddk.h"

using vantrel::NetworkAddress;

namespace {

NetworkAddressCollectionHandle* handle(std::vector<NetworkAddress>& v) {
  return reinterpret_cast<NetworkAddressCollectionHandle*>(&v);
}

TEST(NetworkAddresses, AppendThenReadBack) {
  std::vector<NetworkAddress> addresses;
  EXPECT_EQ(ddk_append_network_address(handle(addresses), 4, "192.0.2.10", 10), 0);
  EXPECT_EQ(ddk_append_network_address(handle(addresses), 6, "192.0.2.10", 3), 0);
  EXPECT_EQ(ddk_append_network_address(handle(addresses), 7, "a\0b", 3), 0);
  ASSERT_EQ(ddk_get_network_address_collection_size(handle(addresses)), 3u);
  const struct {
    int32_t type;
    std::string text;
  } expected[] = {{4, "192.0.2.10"}, {6, "192"}, {7, std::string("a\0b", 3)}};
  for (unsigned i = 0; i < 3; ++i) {
    NetworkAddressHandle* element = ddk_get_network_address_at(handle(addresses), i);
    ASSERT_EQ(reinterpret_cast<NetworkAddress*>(element), &addresses[i]);
    EXPECT_EQ(addresses[i].address, expected[i].text);
    EXPECT_EQ(ddk_get_network_address(element), addresses[i].address.c_str()) << "a pointer into the record";
    int32_t type = -99;
    EXPECT_EQ(ddk_get_network_address_type(element, &type), 0);
    EXPECT_EQ(type, expected[i].type);
  }
  EXPECT_STREQ(ddk_get_network_address(ddk_get_network_address_at(handle(addresses), 2)), "a");
}

TEST(NetworkAddresses, TypeCodesRoundTripBitForBit) {
  for (uint32_t bits : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    std::vector<NetworkAddress> addresses;
    ASSERT_EQ(ddk_append_network_address(handle(addresses), static_cast<int32_t>(bits), "h", 1), 0);
    int32_t type = 0x5A5A5A5A;
    EXPECT_EQ(ddk_get_network_address_type(ddk_get_network_address_at(handle(addresses), 0), &type), 0);
    EXPECT_EQ(static_cast<uint32_t>(type), bits);
  }
}

TEST(NetworkAddresses, RefusedAppendsChangeNothing) {
  const struct {
    const char* what;
    bool nullCollection;
    const char* text;
    unsigned length;
    int result;
  } cases[] = {
      {"null text", false, nullptr, 4, -2},
      {"zero length", false, "10.0.0.1", 0, -2},
      {"null collection", true, "10.0.0.1", 8, -1},
      // Wrong two ways: the collection is tested first.
      {"null collection, null text", true, nullptr, 4, -1},
      {"null collection, zero length", true, "10.0.0.1", 0, -1},
  };
  for (const auto& c : cases) {
    std::vector<NetworkAddress> addresses{{1, "keep"}};
    EXPECT_EQ(ddk_append_network_address(c.nullCollection ? nullptr : handle(addresses), 2, c.text, c.length),
              c.result)
        << c.what;
    ASSERT_EQ(addresses.size(), 1u) << c.what;
    EXPECT_EQ(addresses[0].type, 1);
    EXPECT_EQ(addresses[0].address, "keep");
  }
}

TEST(NetworkAddresses, NullHandlesAndIndexesOutside) {
  std::vector<NetworkAddress> addresses{{1, "a"}, {2, "b"}};
  EXPECT_EQ(ddk_get_network_address_collection_size(nullptr), 0u);
  EXPECT_EQ(ddk_get_network_address_at(nullptr, 0), nullptr);
  EXPECT_EQ(ddk_get_network_address_at(handle(addresses), 2), nullptr);
  EXPECT_EQ(ddk_get_network_address_at(handle(addresses), 0xFFFFFFFFu), nullptr);
  std::vector<NetworkAddress> empty;
  EXPECT_EQ(ddk_get_network_address_collection_size(handle(empty)), 0u);
  EXPECT_EQ(ddk_get_network_address_at(handle(empty), 0), nullptr);
  EXPECT_EQ(ddk_get_network_address(nullptr), nullptr);
  int32_t type = 77;
  EXPECT_EQ(ddk_get_network_address_type(nullptr, &type), -1);
  EXPECT_EQ(type, 77);
  EXPECT_EQ(ddk_get_network_address_type(ddk_get_network_address_at(handle(addresses), 1), nullptr), -1);
}

}  // namespace

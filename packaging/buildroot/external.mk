include $(sort $(wildcard $(BR2_EXTERNAL_BRISEL_PATH)/package/*/*.mk))

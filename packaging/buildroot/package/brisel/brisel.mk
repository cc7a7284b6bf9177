################################################################################
#
# brisel
#
################################################################################

# This tree itself, two folders above the external tree.
BRISEL_SITE = $(realpath $(BR2_EXTERNAL_BRISEL_PATH)/../..)
BRISEL_SITE_METHOD = local
BRISEL_CONF_OPTS = -DBRISEL_BOARD=OFF

$(eval $(cmake-package))

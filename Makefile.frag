# Installers look for a module under the extension's own name: in modules/ a copy, once installed a second name.
zorvel_file = php_zorvel.$(SHLIB_DL_SUFFIX_NAME)
zorvel_name = zorvel.$(SHLIB_DL_SUFFIX_NAME)

$(phplibdir)/$(zorvel_name): $(phplibdir)/php_zorvel.la
	cp -f $(phplibdir)/$(zorvel_file) $@

install-zorvel: install-modules
	ln -sf $(zorvel_file) $(INSTALL_ROOT)$(EXTENSION_DIR)/$(zorvel_name)

all: $(phplibdir)/$(zorvel_name)
install: install-zorvel

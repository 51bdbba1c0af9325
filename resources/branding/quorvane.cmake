set(BRANDING_PRODUCT "RB27 Utility")
set(BRANDING_PLAYER RB27)
set(BRANDING_PACKAGE kavena-pc)
set(BRANDING_TOOLS_PACKAGE kavena-tools)
# The languages are those of the menu, the first one that of a first start.
set(BRANDING_LANGUAGES de en)
set(BRANDING_TRANSLATIONS quorvane_) # followed by the language
set(BRANDING_HELP_LANGUAGES de en)
set(BRANDING_HELP_PAGES quorvane_help_)
set(BRANDING_PRODUCT_LOGO logo-RB27-Utility.png)
set(BRANDING_MAKER_LOGO logo-quorvane.png)
set(BRANDING_ABOUT_LOGO logo-quorvane_512.png)
set(BRANDING_ASKS_COPYRIGHT false) # until the user says otherwise
set(BRANDING_SCREENSHOTS "") # the folder of its pictures below docs/screenshots

# What the Debian package installs and how CPack makes it (tools/package). The version is the
# project's (CMakeLists.txt), the dependencies on shared libraries are computed by
# dpkg-shlibdeps, and the package adds what the program loads at run time.
include(GNUInstallDirs)
set(est_pkg ${PROJECT_SOURCE_DIR}/packaging)
set(est_pkg_out ${CMAKE_BINARY_DIR}/packaging)
find_program(EST_RSVG rsvg-convert REQUIRED)
find_program(EST_GZIP gzip REQUIRED)

install(TARGETS estimate RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${est_pkg}/estimate.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${est_pkg}/estimate.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# The icon drawn at the sizes desktops ask for.
set(est_pkg_files)
foreach(size 16 24 32 48 64 128 256)
    set(png ${est_pkg_out}/icons/${size}x${size}/estimate.png)
    add_custom_command(OUTPUT ${png}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${est_pkg_out}/icons/${size}x${size}
        COMMAND ${EST_RSVG} -w ${size} -h ${size} ${est_pkg}/estimate.svg -o ${png}
        DEPENDS ${est_pkg}/estimate.svg VERBATIM)
    install(FILES ${png} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
    list(APPEND est_pkg_files ${png})
endforeach()

# The manual page and the changelog carry the version; both compressed without a timestamp.
foreach(doc "estimate.1;${CMAKE_INSTALL_MANDIR}/man1" "changelog;${CMAKE_INSTALL_DATADIR}/doc/estimate")
    list(GET doc 0 name)
    list(GET doc 1 destination)
    configure_file(${est_pkg}/${name}.in ${est_pkg_out}/${name} @ONLY)
    add_custom_command(OUTPUT ${est_pkg_out}/${name}.gz
        COMMAND sh -c "${EST_GZIP} -9nc \"$1\" > \"$2\"" sh ${est_pkg_out}/${name} ${est_pkg_out}/${name}.gz
        DEPENDS ${est_pkg_out}/${name} VERBATIM)
    install(FILES ${est_pkg_out}/${name}.gz DESTINATION ${destination})
    list(APPEND est_pkg_files ${est_pkg_out}/${name}.gz)
endforeach()
install(FILES ${est_pkg}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/estimate)
add_custom_target(package_files ALL DEPENDS ${est_pkg_files})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME estimate)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGE_CONTACT "The estimate developers <estimate@example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "見積書作成 — estimates and invoices for a car body-repair shop")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "自動車鈑金塗装の見積書・請求書・納品書を作ります。\n"
    "部品カタログ、塗装・バンパー・付加・鈑金の指数、顧客と車両、電子インボイス（JP PINT）、PDF。\n"
    "Estimates, invoices and delivery notes for a car body-repair shop: parts\n"
    "catalogue, paint, bumper and sheet-metal indices, customers and vehicles,\n"
    "electronic invoices (JP PINT) and PDF.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded at run time, which dpkg-shlibdeps cannot see: the screen fonts, Qt's Japanese texts,
# the SQLite driver and the PostgreSQL driver of a shared server.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-noto-cjk, qt6-translations-l10n, libqt6sql6-sqlite, libqt6sql6-psql")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
include(CPack)

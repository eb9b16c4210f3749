# shellcheck shell=bash disable=SC2034
# The Debian packages that the house stands on, each once, with its reason. The README repeats the reasons.
# Sourced by ./run and ./test.

# What building and running the three programs takes.
run_packages=(
    g++                       # the compiler
    cmake                     # describes the build
    ninja-build               # runs the build
    ccache                    # a second build costs seconds
    libsqlite3-dev            # the embedded database
    libpq-dev                 # the way to a PostgreSQL server
    unixodbc-dev              # the way to SQL Server
    libicu-dev                # the order of texts, the same in a file as on a server
    libcurl4-openssl-dev      # sends the mails
    qt6-base-dev              # the windows
    qt6-image-formats-plugins # pictures of vehicles as tiff and webp
    qt6-wayland               # windows on a desktop that speaks Wayland alone
    fonts-inter               # the typeface of the screens
    fonts-liberation          # stands in for Arial and Times New Roman
    nlohmann-json3-dev        # the automation's lines of JSON
)

# What the suite takes beside that.
test_packages=(
    git                # tells the checks of the house which files are its own
    doctest-dev        # the table tests
    postgresql-15      # a server for the tests on PostgreSQL
    python3            # the checks of the house and the test mail server
    python3-aiosmtpd   # a real mail server on loopback
    tdsodbc            # the FreeTDS driver, which talks to the suite's own server
    clang-format       # the layout of the sources
    xvfb               # a display for the window tests
    xauth              # lets xvfb-run open that display
    xdotool            # keys and clicks as a person makes them
)

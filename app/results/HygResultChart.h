#pragma once

#include "results/HygMeasuredData.h"
#include "results/HygResultFile.h"
#include "results/HygResultModels.h"
#include "results/HygResultScale.h"

#include <SCI/Chart.h>

#include <QDateTime>
#include <QWidget>

#include <atomic>
#include <map>
#include <optional>

class QSplitter;

/// Charts of result files: courses over time, profiles and fields at a time. What is asked for is read when it is to be
/// drawn; long series are read by another thread.
class HygResultChart : public QWidget {
    Q_OBJECT
public:
    using Files = std::vector<std::shared_ptr<HygResultFile>>;
    enum cut_t { NoCut, AlongX, AlongY };
    struct Options {
        bool isOverTime = false; ///< also of profiles and fields: the course at one place
        std::size_t place = 0;   ///< index of the value whose course is shown
        QString unit;            ///< of the first file's values; empty: as in the file
        bool hasDates = false;   ///< times as dates
        int normal = 2;          ///< of volumes: direction of the grid that the plane lies across
        std::size_t plane = 0;   ///< of volumes: cell in that direction
        bool isSmooth = false;   ///< of fields
        bool hasIsolines = false;
        bool hasArrows = true;
        cut_t cut = NoCut;
        double cutPlace = 0.5;           ///< share of the extent across the cut
        std::optional<double> threshold; ///< in the unit shown
        bool hasDewPoint = false;        ///< of temperatures, where the humidity is known
        bool hasMouldLimit = false;      ///< the line at 80 %
        bool operator==(const Options &) const = default;
    };
    /// The 80 % above which mould can grow.
    static constexpr double MOULD_LIMIT = 0.8;
    static constexpr std::size_t MAX_FILES = 12;

    explicit HygResultChart(QWidget * parent = nullptr);
    ~HygResultChart() override;

    /// The first file decides what is shown; others are added where they fit.
    void setFiles(Files files);
    const Files & files() const { return m_files; }
    void setOptions(const Options & options);
    const Options & options() const { return m_options; }
    void setMeasured(const HygMeasuredData & measured);
    /// Of profiles and fields [s].
    void setTime(double seconds);
    /// Shows what has been written since. \return whether there was something
    bool refresh();

    /// Whether courses are shown, for which there is no time to choose.
    bool isOverTime() const;
    bool isField() const;
    /// Whether all that was asked for has been read.
    bool isComplete() const { return m_pending == 0 && m_scale->isComplete(); }
    /// Times of the first file's records: their number, and one of them [s].
    std::size_t timeCount() const;
    double time(std::size_t index) const;
    std::size_t timeIndex() const { return m_timeIndex; }

    QString statistics() const;
    /// Where the course of a file is taken that has many places.
    QString placeText(const HygResultFile & file) const;
    /// What stands in place of a chart while there are no files.
    void setEmptyText(const QString & text);
    /// "60.00 d (02.03.2000 00:00)"
    static QString timeText(double seconds, int startYear);
    /// What could not be shown, one a line; empty if all is well.
    QString problems() const { return m_problems.join('\n'); }
    SCI::Chart & chart() { return *m_chart; }
    SCI::Chart & cutChart() { return *m_cutChart; }
    /// Why the files have no dew point, or no line at 80 %; empty if they have.
    QString dewPointObstacle();
    QString mouldLimitObstacle() const;

    /// Where the cut lies: "y = 245 mm"; empty without one.
    QString cutText() const;
    /// The chart and, if there is one, the cut below it.
    void render(QPainter & painter, const QRectF & rectangle) const;
    QImage image(const QSize & size, double scale = 1) const;
    /// The tables of both. Throws as SCI::Chart::csv.
    std::string csv(char separator = ',') const;
    void copyPicture() const;
    void copyTable() const;

protected:
    void changeEvent(QEvent * event) override;

signals:
    /// Something new is drawn: statistics and problems may be others.
    void shown();

private:
    using Line = HygResultModels::Line;
    struct Drawn {
        std::shared_ptr<HygResultFile> file;
        std::shared_ptr<HygResultFile> humidity; ///< of a dew point
        std::shared_ptr<Line> line;
        SCI::Chart::id_t id = 0;
        KOR::Unit unit; ///< of the axis
        bool isDewPoint = false;
    };

    void rebuild();
    void buildCourses();
    void buildProfiles();
    void buildField();
    void buildCut();
    /// Of the line across the field [m], and the row or column of cells that it lies in.
    double cutPosition() const;
    std::size_t cutIndex() const;
    /// The cut stands below the places that it shows.
    void alignCut();
    /// What stands in place of a chart.
    void showPlaceholder();
    /// A file in the legend and in tables: its name, as far as needed its project, and of a course its place.
    QString label(const HygResultFile & file) const;
    void addLimits();
    void addLimit(SCI::axis_t axis, KOR::Unit unit, double value, const QString & text);
    /// Axes that show what there is reach up to the limits, and back when these have gone.
    void showLimits();
    void releaseLimits();
    /// A range in which the limits of the axis lie as well; one that is far away is told instead.
    SCI::Range withLimits(SCI::axis_t axis, const SCI::Range & range);
    /// Shades and names what the cells of a line through the grid are made of.
    void addLayers(SCI::Chart & chart, int along, const std::array<std::uint32_t, 3> & start);
    void addMeasured();
    void setTimeAxis();
    /// The axis on which a file's values fit, and its unit; nothing if both are taken by other kinds.
    std::optional<SCI::axis_t> axisFor(const HygResultFile & file);
    Drawn & addLine(const std::shared_ptr<HygResultFile> & file, SCI::axis_t axis, bool isDewPoint);
    void requestCourse(std::size_t drawn);
    void takeCourse(int generation, std::size_t drawn, bool isLast, const HygResultFile::Series & series);
    void showTime();
    void showCut();
    std::shared_ptr<HygResultFile> humidityOf(HygResultFile & temperature);
    void addDewPoint(const std::shared_ptr<HygResultFile> & temperature, SCI::axis_t axis);
    /// "Temperature [C]" of the values, in the language of the program.
    SCI::Axis valueAxis(const HygResultFile & file, KOR::Unit own, KOR::Unit shown) const;
    void complain(const QString & problem);
    void findRange();
    void applyRanges();
    /// "Show all" shows the range of all times, not that of the moment.
    void keepScale();
    KOR::Unit shownUnit() const;

    SCI::Chart * m_chart;
    SCI::Chart * m_cutChart;
    HygResultScale * m_scale;
    QSplitter * m_splitter;
    Files m_files;
    Options m_options;
    HygMeasuredData m_measured;
    std::vector<Drawn> m_drawn;
    std::vector<std::shared_ptr<Line>> m_measuredLines;
    std::shared_ptr<HygResultModels::Field> m_field;
    std::shared_ptr<HygResultModels::Arrows> m_arrows;
    std::shared_ptr<HygResultFile> m_arrowFile;
    std::shared_ptr<Line> m_cutLine;
    struct Limit {
        SCI::axis_t axis;
        double value; ///< in the unit of the axis
        QString text;
    };
    std::vector<Limit> m_limits;                     ///< lines that are to be seen
    std::map<SCI::axis_t, SCI::Range> m_limitRanges; ///< that were chosen to show them
    struct Humidity {
        QDateTime looked; ///< the directory's, when it was looked through
        std::shared_ptr<HygResultFile> file;
    };
    std::map<QString, Humidity> m_humidities; ///< by the paths of temperatures
    cut_t m_shownCut = NoCut;                 ///< whose view the lower chart has
    KOR::Unit m_leftUnit, m_rightUnit;
    std::size_t m_timeIndex = 0;
    std::optional<double> m_wantedTime; ///< [s]
    QString m_emptyText;
    /// Answers to earlier questions are dropped. The readers look at it too, whatever has become of the chart.
    std::shared_ptr<std::atomic<int>> m_generation = std::make_shared<std::atomic<int>>(0);
    int m_pending = 0;
    bool m_isAligning = false;
    bool m_isScaling = false;
    bool m_isNewView = true;      ///< other files: all is shown; otherwise the user's view stays
    bool m_hasValueRange = false; ///< the range of all times has been set
    QStringList m_problems;
};

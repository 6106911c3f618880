// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/OpenGlRenderer.h"

#include <QGuiApplication>
#include <QMatrix4x4>
#include <QOffscreenSurface>
#include <QOpenGLBuffer>
#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QOpenGLFramebufferObject>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace fennar::graphics {

namespace {

constexpr int position_attribute = 0;
constexpr int normal_attribute = 1;
constexpr int samples = 4;

constexpr auto vertex_shader = R"(
attribute highp vec3 position;
attribute highp vec3 normal;
uniform highp mat4 place;
uniform highp mat3 turn;
uniform highp vec3 light;
uniform highp vec3 color;
uniform highp float ambient;
uniform highp float direct;
varying highp vec3 shade;
void main()
{
    highp vec3 towards = turn * normal;
    highp float sum = dot(towards, light);
    shade = color * (ambient + direct * max(0.0, towards.z < 0.0 ? -sum : sum));
    gl_Position = place * vec4(position, 1.0);
}
)";

constexpr auto fragment_shader = R"(
varying highp vec3 shade;
void main()
{
    gl_FragColor = vec4(shade, 1.0);
}
)";

/** Which of a shape's buffers holds what. */
enum Content : std::size_t { Corners, Normals, Lines, Curves };

/** A shape in the memory of the device. */
struct Stored
{
    std::weak_ptr<const SceneShape> shape;
    std::array<QOpenGLBuffer, 4> buffers;

    void remove()
    {
        for (QOpenGLBuffer& buffer : buffers)
            buffer.destroy();
    }
};

} // namespace

/** All that lies in the device's memory. The context is the current one in all functions. */
struct OpenGlRenderer::Device
{
    QOffscreenSurface surface;
    QOpenGLContext context;
    std::unique_ptr<QOpenGLShaderProgram> program;
    QOpenGLVertexArrayObject arrays;
    /** Places to draw into, with several samples for each pixel and with one; null or of the present size. */
    std::unique_ptr<QOpenGLFramebufferObject> smooth;
    std::unique_ptr<QOpenGLFramebufferObject> plain;
    QSize size;
    std::map<const SceneShape*, Stored> stored;

    QOpenGLExtraFunctions& gl() const { return *context.extraFunctions(); }

    bool make_program()
    {
        program = std::make_unique<QOpenGLShaderProgram>();
        program->bindAttributeLocation("position", position_attribute);
        program->bindAttributeLocation("normal", normal_attribute);
        return program->addShaderFromSourceCode(QOpenGLShader::Vertex, vertex_shader) &&
               program->addShaderFromSourceCode(QOpenGLShader::Fragment, fragment_shader) && program->link();
    }

    /** Makes sure that there are places of that size, and binds the one to draw into. */
    bool prepare(const QSize& wanted, bool draft)
    {
        const auto make = [&](std::unique_ptr<QOpenGLFramebufferObject>& target, int sample_count) {
            if (target)
                return true;
            QOpenGLFramebufferObjectFormat format;
            format.setAttachment(QOpenGLFramebufferObject::Depth);
            format.setInternalTextureFormat(GL_RGBA8);
            format.setSamples(sample_count);
            target = std::make_unique<QOpenGLFramebufferObject>(wanted, format);
            if (!target->isValid())
                target.reset();
            return target != nullptr;
        };
        if (size != wanted) {
            smooth.reset();
            plain.reset();
            size = wanted;
        }
        if (!make(plain, 0))
            return false;
        if (!draft && !make(smooth, samples))
            gl().glGetError(); // it does without
        return (draft || !smooth ? plain : smooth)->bind();
    }

    void remove_all()
    {
        for (auto& [key, shape] : stored)
            shape.remove();
        stored.clear();
        smooth.reset();
        plain.reset();
        arrays.destroy();
        program.reset();
    }

    Stored& find(const std::shared_ptr<const SceneShape>& shape)
    {
        const auto found = stored.find(shape.get());
        if (found != stored.end())
            return found->second;
        Stored& made = stored[shape.get()];
        made.shape = shape;
        std::size_t i = 0;
        for (const std::vector<QVector3D>* points :
             {&shape->corners, &shape->normals, &shape->lines, &shape->curves}) {
            QOpenGLBuffer& buffer = made.buffers[i++];
            buffer.create();
            buffer.bind();
            gl().glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(points->size() * sizeof(QVector3D)), points->data(),
                              GL_STATIC_DRAW);
        }
        return made;
    }

    /** To be called before anything is looked up: another shape may lie where one was. */
    void forget_old()
    {
        for (auto entry = stored.begin(); entry != stored.end();) {
            if (entry->second.shape.expired()) {
                entry->second.remove();
                entry = stored.erase(entry);
            } else {
                ++entry;
            }
        }
    }

    void use(Stored& shape, Content content, int attribute) const
    {
        shape.buffers[content].bind();
        program->setAttributeBuffer(attribute, GL_FLOAT, 0, 3);
    }

    void place(const Picture& picture, const SceneShape& shape, double depth) const
    {
        const Camera& camera = picture.camera;
        const double unit = camera.units_per_pixel();
        const double x = 2 / (camera.viewport().width() * unit);
        // Upside down, since what is read back begins at the bottom.
        const double y = -2 / (camera.viewport().height() * unit);
        const double z = -1 / depth;
        const Point3 origin = camera.to_view(shape.origin);
        const Point3 right = camera.right();
        const Point3 up = camera.up();
        const Point3 back = camera.back();
        program->setUniformValue(
            "place",
            QMatrix4x4(float(right.x * x), float(right.y * x), float(right.z * x), float(origin.x * x), //
                       float(up.x * y), float(up.y * y), float(up.z * y), float(origin.y * y),          //
                       float(back.x * z), float(back.y * z), float(back.z * z), float(origin.z * z),    //
                       0, 0, 0, 1));
        const float turn[] = {float(right.x), float(right.y), float(right.z), float(up.x),  float(up.y),
                              float(up.z),    float(back.x),  float(back.y),  float(back.z)};
        program->setUniformValue("turn", QMatrix3x3(turn));
    }

    void set_color(const QColor& color, float ambient_part, float direct_part) const
    {
        program->setUniformValue("color", color.redF(), color.greenF(), color.blueF());
        program->setUniformValue("ambient", ambient_part);
        program->setUniformValue("direct", direct_part);
    }

    void draw_surface(const Picture& picture, const PictureParts::Surface& part, double depth)
    {
        Stored& buffers = find(part.shape);
        place(picture, *part.shape, depth);
        set_color(part.color, Light::ambient, Light::direct);
        use(buffers, Corners, position_attribute);
        use(buffers, Normals, normal_attribute);
        program->enableAttributeArray(normal_attribute);
        gl().glDrawArrays(GL_TRIANGLES, 0, GLsizei(part.shape->corners.size()));
        program->disableAttributeArray(normal_attribute);
    }

    void draw_lines(const Picture& picture, const PictureParts::Lines& lines, double depth)
    {
        Stored& buffers = find(lines.shape);
        place(picture, *lines.shape, depth);
        set_color(lines.color, 1, 0);
        program->setAttributeValue(normal_attribute, QVector3D(0, 0, 1));
        use(buffers, lines.curves ? Curves : Lines, position_attribute);
        gl().glLineWidth(float(lines.width * picture.ratio));
        gl().glDrawArrays(GL_LINES, 0, GLsizei(lines.points().size()));
    }
};

std::unique_ptr<OpenGlRenderer> OpenGlRenderer::create()
{
    // These platforms have no display to draw for; they would take any that they find, or complain.
    const QString platform = QGuiApplication::platformName();
    if (platform == "offscreen"_L1 || platform.startsWith("minimal"_L1))
        return nullptr;
    auto device = std::make_unique<Device>();
    device->surface.create();
    if (!device->surface.isValid() || !device->context.create() ||
        !device->context.makeCurrent(&device->surface))
        return nullptr;
    std::unique_ptr<OpenGlRenderer> renderer(new OpenGlRenderer(std::move(device)));
    Device& made = *renderer->mDevice;
    const bool complete =
        made.context.format().majorVersion() >= 3 && made.make_program() && made.arrays.create();
    made.context.doneCurrent();
    return complete ? std::move(renderer) : nullptr;
}

OpenGlRenderer::OpenGlRenderer(std::unique_ptr<Device> device) : mDevice(std::move(device)) {}

OpenGlRenderer::~OpenGlRenderer()
{
    if (mDevice->context.makeCurrent(&mDevice->surface))
        mDevice->remove_all();
    mDevice->context.doneCurrent();
}

QImage OpenGlRenderer::render(const Picture& picture)
{
    Device& device = *mDevice;
    if (!device.context.makeCurrent(&device.surface))
        return {};
    QOpenGLExtraFunctions& gl = device.gl();
    GLint most = 0;
    GLint most_of_texture = 0;
    gl.glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &most);
    gl.glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most_of_texture);
    const QSize size = picture.device_size();
    if (std::max(size.width(), size.height()) > std::min(most, most_of_texture) ||
        !device.prepare(size, picture.draft)) {
        device.context.doneCurrent();
        return {};
    }
    device.forget_old();
    gl.glViewport(0, 0, size.width(), size.height());
    gl.glClearColor(0, 0, 0, 0);
    gl.glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    gl.glEnable(GL_DEPTH_TEST);
    gl.glDepthFunc(GL_LEQUAL);
    gl.glDisable(GL_BLEND);
    gl.glDisable(GL_CULL_FACE);

    const PictureParts parts(picture);
    const double depth = picture.depth();
    device.arrays.bind();
    device.program->bind();
    device.program->setUniformValue("light", Light::from[0], Light::from[1], Light::from[2]);
    device.program->enableAttributeArray(position_attribute);
    // Pushed back a little, so that lines on the surface are seen.
    gl.glEnable(GL_POLYGON_OFFSET_FILL);
    gl.glPolygonOffset(1, 1);
    for (const auto& surface : parts.surfaces)
        device.draw_surface(picture, surface, depth);
    gl.glDisable(GL_POLYGON_OFFSET_FILL);
    for (const auto& lines : parts.lines)
        device.draw_lines(picture, lines, depth);
    device.arrays.release();
    device.program->release();

    if (!picture.draft && device.smooth)
        QOpenGLFramebufferObject::blitFramebuffer(device.plain.get(), device.smooth.get());
    QImage image = device.plain->toImage(false);
    const bool failed = gl.glGetError() != GL_NO_ERROR;
    device.context.doneCurrent();
    if (failed)
        return {};
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(picture.ratio);
    return image;
}

QString OpenGlRenderer::device() const
{
    if (!mDevice->context.makeCurrent(&mDevice->surface))
        return {};
    const auto* name = reinterpret_cast<const char*>(mDevice->gl().glGetString(GL_RENDERER));
    const QString device = QString::fromUtf8(name);
    mDevice->context.doneCurrent();
    return device;
}

} // namespace fennar::graphics

// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/OpenGlRenderer.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>

#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr GLuint position_attribute = 0;
constexpr GLuint normal_attribute = 1;
constexpr int samples = 4;

constexpr auto vertex_shader = R"(
#ifndef GL_ES
#define highp
#endif
attribute highp vec3 position;
attribute highp vec3 normal;
uniform highp mat4 place;
uniform highp mat3 turn;
uniform highp vec3 light;
uniform highp vec3 colour;
uniform highp float ambient;
uniform highp float direct;
varying highp vec3 shade;
void main()
{
    highp vec3 towards = turn * normal;
    highp float sum = dot(towards, light);
    shade = colour * (ambient + direct * max(0.0, towards.z < 0.0 ? -sum : sum));
    gl_Position = place * vec4(position, 1.0);
}
)";

constexpr auto fragment_shader = R"(
#ifndef GL_ES
#define highp
#endif
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
    std::array<GLuint, 4> buffers = {};
};

/** A place to draw into. */
struct Target
{
    GLuint frame = 0;
    GLuint colour = 0;
    GLuint depth = 0;
};

} // namespace

/** All that lies in the device's memory. The context is the current one in all functions. */
struct OpenGlRenderer::Device
{
    QOffscreenSurface surface;
    QOpenGLContext context;
    GLuint program = 0;
    GLuint arrays = 0;
    /** With several samples for each pixel, and with one. */
    Target smooth;
    Target plain;
    QSize size;
    std::map<const SceneShape*, Stored> stored;

    QOpenGLExtraFunctions& gl() const { return *context.extraFunctions(); }
    GLint uniform(const char* name) const { return gl().glGetUniformLocation(program, name); }

    bool make_program();
    bool make_target(Target& target, int sample_count) const;
    void remove_target(Target& target) const;
    bool prepare(const QSize& wanted, bool draft);
    void remove_all();

    const Stored& find(const std::shared_ptr<const SceneShape>& shape);
    void forget_old();
    void use(const Stored& shape, Content content, GLuint attribute) const;
    void place(const Picture& picture, const SceneShape& shape, double depth) const;
    void set_colour(const QColor& colour, float ambient_part, float direct_part) const;
    void draw_surface(const Picture& picture, const Scene::Item& item, double depth);
    void draw_lines(const Picture& picture, const std::shared_ptr<const SceneShape>& shape, Content content,
                    const QColor& colour, double width, double depth);
};

bool OpenGlRenderer::Device::make_program()
{
    QOpenGLExtraFunctions& functions = gl();
    program = functions.glCreateProgram();
    for (const auto& [kind, text] :
         {std::pair{GL_VERTEX_SHADER, vertex_shader}, std::pair{GL_FRAGMENT_SHADER, fragment_shader}}) {
        const GLuint shader = functions.glCreateShader(GLenum(kind));
        const char* source = text;
        functions.glShaderSource(shader, 1, &source, nullptr);
        functions.glCompileShader(shader);
        functions.glAttachShader(program, shader);
        functions.glDeleteShader(shader); // goes with the program
    }
    functions.glBindAttribLocation(program, position_attribute, "position");
    functions.glBindAttribLocation(program, normal_attribute, "normal");
    functions.glLinkProgram(program);
    GLint linked = GL_FALSE;
    functions.glGetProgramiv(program, GL_LINK_STATUS, &linked);
    return linked == GL_TRUE;
}

/** Makes a place of the present size and binds it. */
bool OpenGlRenderer::Device::make_target(Target& target, int sample_count) const
{
    QOpenGLExtraFunctions& functions = gl();
    functions.glGenFramebuffers(1, &target.frame);
    functions.glBindFramebuffer(GL_FRAMEBUFFER, target.frame);
    const auto attach = [&](GLuint& buffer, GLenum format, GLenum attachment) {
        functions.glGenRenderbuffers(1, &buffer);
        functions.glBindRenderbuffer(GL_RENDERBUFFER, buffer);
        functions.glRenderbufferStorageMultisample(GL_RENDERBUFFER, sample_count, format, size.width(),
                                                   size.height());
        functions.glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, buffer);
    };
    attach(target.colour, GL_RGBA8, GL_COLOR_ATTACHMENT0);
    attach(target.depth, GL_DEPTH_COMPONENT24, GL_DEPTH_ATTACHMENT);
    return functions.glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

void OpenGlRenderer::Device::remove_target(Target& target) const
{
    gl().glDeleteFramebuffers(1, &target.frame);
    gl().glDeleteRenderbuffers(1, &target.colour);
    gl().glDeleteRenderbuffers(1, &target.depth);
    target = {};
}

/** Makes sure that there are places of that size, and binds the one to draw into. */
bool OpenGlRenderer::Device::prepare(const QSize& wanted, bool draft)
{
    if (size != wanted) {
        remove_target(smooth);
        remove_target(plain);
        size = wanted;
    }
    if (plain.frame == 0 && !make_target(plain, 0)) {
        remove_target(plain);
        return false;
    }
    if (!draft && smooth.frame == 0 && !make_target(smooth, samples)) {
        remove_target(smooth);
        gl().glGetError(); // it does without
    }
    gl().glBindFramebuffer(GL_FRAMEBUFFER, draft || smooth.frame == 0 ? plain.frame : smooth.frame);
    return true;
}

void OpenGlRenderer::Device::remove_all()
{
    for (const auto& [key, shape] : stored)
        gl().glDeleteBuffers(GLsizei(shape.buffers.size()), shape.buffers.data());
    stored.clear();
    remove_target(smooth);
    remove_target(plain);
    gl().glDeleteVertexArrays(1, &arrays);
    gl().glDeleteProgram(program);
}

const Stored& OpenGlRenderer::Device::find(const std::shared_ptr<const SceneShape>& shape)
{
    const auto found = stored.find(shape.get());
    if (found != stored.end())
        return found->second;
    Stored& made = stored[shape.get()];
    made.shape = shape;
    gl().glGenBuffers(GLsizei(made.buffers.size()), made.buffers.data());
    std::size_t i = 0;
    for (const std::vector<QVector3D>* points :
         {&shape->corners, &shape->normals, &shape->lines, &shape->curves}) {
        gl().glBindBuffer(GL_ARRAY_BUFFER, made.buffers[i++]);
        gl().glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(points->size() * sizeof(QVector3D)), points->data(),
                          GL_STATIC_DRAW);
    }
    return made;
}

/** To be called before anything is looked up: another shape may lie where one was. */
void OpenGlRenderer::Device::forget_old()
{
    std::erase_if(stored, [this](const auto& entry) {
        const Stored& shape = entry.second;
        if (!shape.shape.expired())
            return false;
        gl().glDeleteBuffers(GLsizei(shape.buffers.size()), shape.buffers.data());
        return true;
    });
}

void OpenGlRenderer::Device::use(const Stored& shape, Content content, GLuint attribute) const
{
    gl().glBindBuffer(GL_ARRAY_BUFFER, shape.buffers[content]);
    gl().glVertexAttribPointer(attribute, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
}

void OpenGlRenderer::Device::place(const Picture& picture, const SceneShape& shape, double depth) const
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
    // Column by column.
    const GLfloat matrix[] = {
        float(right.x * x),  float(up.x * y),     float(back.x * z),   0,
        float(right.y * x),  float(up.y * y),     float(back.y * z),   0,
        float(right.z * x),  float(up.z * y),     float(back.z * z),   0,
        float(origin.x * x), float(origin.y * y), float(origin.z * z), 1,
    };
    gl().glUniformMatrix4fv(uniform("place"), 1, GL_FALSE, matrix);
    const GLfloat turn[] = {float(right.x), float(up.x),    float(back.x), float(right.y), float(up.y),
                            float(back.y),  float(right.z), float(up.z),   float(back.z)};
    gl().glUniformMatrix3fv(uniform("turn"), 1, GL_FALSE, turn);
}

void OpenGlRenderer::Device::set_colour(const QColor& colour, float ambient_part, float direct_part) const
{
    gl().glUniform3f(uniform("colour"), float(colour.redF()), float(colour.greenF()), float(colour.blueF()));
    gl().glUniform1f(uniform("ambient"), ambient_part);
    gl().glUniform1f(uniform("direct"), direct_part);
}

void OpenGlRenderer::Device::draw_surface(const Picture& picture, const Scene::Item& item, double depth)
{
    const PictureParts parts = PictureParts::of(item, picture);
    if (!parts.surface)
        return;
    const auto& shape = parts.surface == item.mesh.get() ? item.mesh : item.shape;
    const Stored& buffers = find(shape);
    place(picture, *shape, depth);
    set_colour(parts.surface_colour, ambient, direct);
    use(buffers, Corners, position_attribute);
    use(buffers, Normals, normal_attribute);
    gl().glEnableVertexAttribArray(normal_attribute);
    gl().glDrawArrays(GL_TRIANGLES, 0, GLsizei(shape->corners.size()));
    gl().glDisableVertexAttribArray(normal_attribute);
}

void OpenGlRenderer::Device::draw_lines(const Picture& picture,
                                        const std::shared_ptr<const SceneShape>& shape, Content content,
                                        const QColor& colour, double width, double depth)
{
    const Stored& buffers = find(shape);
    place(picture, *shape, depth);
    set_colour(colour, 1, 0);
    gl().glVertexAttrib3f(normal_attribute, 0, 0, 1);
    use(buffers, content, position_attribute);
    gl().glLineWidth(float(width * picture.ratio));
    gl().glDrawArrays(GL_LINES, 0, GLsizei((content == Curves ? shape->curves : shape->lines).size()));
}

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
    const bool complete = made.context.format().majorVersion() >= 3 && made.make_program();
    if (complete)
        made.gl().glGenVertexArrays(1, &made.arrays);
    made.context.doneCurrent();
    return complete ? std::move(renderer) : nullptr;
}

OpenGlRenderer::OpenGlRenderer(std::unique_ptr<Device> device) : mDevice(std::move(device)) {}

OpenGlRenderer::~OpenGlRenderer()
{
    if (mDevice->context.makeCurrent(&mDevice->surface) && mDevice->arrays != 0)
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
    gl.glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &most);
    const QSize size = picture.device_size();
    if (std::max(size.width(), size.height()) > most || !device.prepare(size, picture.draft)) {
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

    const double depth = picture.depth();
    gl.glBindVertexArray(device.arrays);
    gl.glUseProgram(device.program);
    gl.glUniform3f(device.uniform("light"), light[0], light[1], light[2]);
    gl.glEnableVertexAttribArray(position_attribute);
    // Pushed back a little, so that lines on the surface are seen.
    gl.glEnable(GL_POLYGON_OFFSET_FILL);
    gl.glPolygonOffset(1, 1);
    for (const auto& [id, item] : picture.scene.items())
        device.draw_surface(picture, item, depth);
    gl.glDisable(GL_POLYGON_OFFSET_FILL);
    for (const auto& [id, item] : picture.scene.items()) {
        const PictureParts parts = PictureParts::of(item, picture);
        if (parts.mesh_lines)
            device.draw_lines(picture, item.mesh, Lines, parts.mesh_line_colour, mesh_line_width, depth);
        if (parts.edges)
            device.draw_lines(picture, item.shape, Lines, parts.edge_colour, edge_width, depth);
        if (parts.curves)
            device.draw_lines(picture, item.shape, Curves, parts.edge_colour, curve_width, depth);
    }
    gl.glBindVertexArray(0);
    gl.glUseProgram(0);

    if (!picture.draft && device.smooth.frame != 0) {
        gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, device.plain.frame);
        gl.glBlitFramebuffer(0, 0, size.width(), size.height(), 0, 0, size.width(), size.height(),
                             GL_COLOR_BUFFER_BIT, GL_NEAREST);
    }
    gl.glBindFramebuffer(GL_FRAMEBUFFER, device.plain.frame);
    QImage image(size, QImage::Format_RGBA8888_Premultiplied);
    gl.glPixelStorei(GL_PACK_ALIGNMENT, 4);
    gl.glReadPixels(0, 0, size.width(), size.height(), GL_RGBA, GL_UNSIGNED_BYTE, image.bits());
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

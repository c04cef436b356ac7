<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

/** The folders in which templates and what they include are looked for, in this order. */
final readonly class Folders
{
    private const array EXCLUDED = ['vendor', 'node_modules'];

    /** @var list<string> */
    public array $paths;

    /**
     * @param array<string> $paths
     * @param array<string> $extensions of the files that are templates
     */
    public function __construct(array $paths, private array $extensions)
    {
        $this->paths = array_values(array_unique(array_map(fn(string $path): string => rtrim($path, '/') ?: '/', $paths)));
    }

    /** That of these folders which has the file in it, then the others. */
    public function around(string $file): self
    {
        $root = array_find($this->paths, fn(string $path): bool => self::isIn($path, $file)) ?? dirname($file);

        return new self([$root, ...$this->paths], $this->extensions);
    }

    /** The name by which a page is made from a file in the first folder. */
    public function nameOf(string $file): string
    {
        return ltrim(substr($file, strlen(self::join($this->paths[0], ''))), '/');
    }

    /** The file that an include of this name reads; null when there is none. */
    public function find(string $name): ?string
    {
        $isFixed = preg_match('~^(/|\.\.?/|[a-zA-Z]:[/\\\\])~', $name) === 1;
        $candidates = $isFixed ? [$name] : array_map(fn(string $path): string => self::join($path, $name), $this->paths);

        return array_find($candidates, fn(string $file): bool => !str_contains($file, "\0") && @is_file($file));
    }

    /**
     * The templates at a path. Below a folder those of dependencies are left out, and what is hidden or
     * behind a symbolic link; a folder that cannot be read stands for itself.
     *
     * @return list<string>
     */
    public function templatesAt(string $path): array
    {
        $names = is_dir($path) ? @scandir($path) : false;
        if ($names === false) {
            return [$path];
        }
        $paths = array_map(fn(string $name): string => self::join($path, $name), array_filter($names, self::isSearched(...)));

        return array_merge(...array_map($this->templatesAt(...), array_values(array_filter($paths, $this->mayHaveTemplates(...)))));
    }

    private static function isSearched(string $name): bool
    {
        return $name[0] !== '.' && !in_array($name, self::EXCLUDED, true);
    }

    private function mayHaveTemplates(string $path): bool
    {
        return is_dir($path) ? !is_link($path) : in_array(pathinfo($path, PATHINFO_EXTENSION), $this->extensions, true);
    }

    private static function isIn(string $folder, string $file): bool
    {
        $prefix = self::join($folder, '');

        return str_starts_with($file, $prefix) && preg_match('~^/|(^|/)\.\.(/|$)~', substr($file, strlen($prefix))) === 0;
    }

    private static function join(string $folder, string $name): string
    {
        return $folder === '.' ? $name : rtrim($folder, '/') . "/$name";
    }
}

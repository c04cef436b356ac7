<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

/** The folders in which templates and their includes are looked for, in this order. */
final readonly class Folders
{
    private const array EXCLUDED = ['vendor', 'node_modules'];

    /** @var list<string> */
    public array $paths;

    /**
     * @param array<string> $paths
     * @param list<string> $extensions of the files that are templates
     */
    public function __construct(array $paths, private array $extensions)
    {
        $this->paths = array_values(array_unique(array_map(fn(string $path): string => rtrim($path, '/') ?: '/', $paths)));
    }

    /** These folders, and those between one of them and the file: which of them pages are made from, nobody tells. */
    public function around(string $file): self
    {
        $between = [];
        for ($folder = dirname($file); !in_array($folder, $this->paths, true); $folder = dirname($folder)) {
            if ($folder === dirname($folder)) {
                return $this;
            }
            array_unshift($between, $folder);
        }

        return new self([...$this->paths, ...$between], $this->extensions);
    }

    /** The file that an include of this name reads; null when there is none. */
    public function find(string $name): ?string
    {
        $isFixed = preg_match('~^(/|\.\.?/|[a-zA-Z]:[/\\\\])~', $name) === 1;
        $candidates = $isFixed ? [$name] : array_map(fn(string $path): string => self::join($path, $name), $this->paths);

        return array_find($candidates, fn(string $file): bool => !str_contains($file, "\0") && is_file($file));
    }

    /** The name by which an include would read the file. */
    public function nameOf(string $file): string
    {
        $names = array_map(fn(string $path): string => substr($file, strlen(self::join($path, ''))), $this->paths);

        return array_find($names, fn(string $name): bool => $this->find($name) === $file) ?? (string) realpath($file);
    }

    /**
     * The templates below a folder, but not those of dependencies, nor those below a folder whose name begins with a dot.
     *
     * @param list<string> $unreadable receives the folders that cannot be read
     * @return list<string>
     */
    public function templatesIn(string $folder, array &$unreadable = []): array
    {
        $names = @scandir($folder);
        if ($names === false) {
            $unreadable[] = $folder;

            return [];
        }
        $files = [];
        foreach (array_filter($names, self::isIncluded(...)) as $name) {
            $path = self::join($folder, $name);
            $found = is_dir($path) ? $this->templatesIn($path, $unreadable) : $this->ifTemplate($path);
            array_push($files, ...$found);
        }

        return $files;
    }

    private static function isIncluded(string $name): bool
    {
        return $name[0] !== '.' && !in_array($name, self::EXCLUDED, true);
    }

    /** @return list<string> */
    private function ifTemplate(string $path): array
    {
        return in_array(pathinfo($path, PATHINFO_EXTENSION), $this->extensions, true) ? [$path] : [];
    }

    private static function join(string $folder, string $name): string
    {
        return $folder === '.' ? $name : rtrim($folder, '/') . "/$name";
    }
}

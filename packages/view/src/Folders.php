<?php

declare(strict_types=1);

namespace Zorvel;

use Closure;
use InvalidArgumentException;

/**
 * The folders of a view, and the one place where a template's name becomes a file.
 *
 * A name cannot lead out of them, but a symbolic link in them can: whoever may place one there may place templates.
 * What a template includes is found in the same folders. The engine opens it, though, and that knows more names: an
 * absolute path, `./` and `../` from the working directory, a wrapper. Templates are trusted with that.
 */
final readonly class Folders
{
    /** @var list<string> absolute */
    private array $folders;

    /** @param array<string> $folders */
    public function __construct(array $folders)
    {
        $this->folders = array_map(self::absolute(...), array_values($folders));
    }

    /**
     * The file that a template's name stands for: the first of this name, as the engine takes it.
     *
     * @throws TemplateError for a name that leads elsewhere or to no regular file
     */
    public function find(string $template): string
    {
        if (!self::staysInside($template)) {
            throw new TemplateError($template, 'A template is named by its path inside the folders');
        }
        $paths = array_map(static fn(string $folder): string => "$folder/$template", $this->folders);
        $file = array_find($paths, static fn(string $path): bool => file_exists($path));
        if ($file === null) {
            throw new TemplateError($template, 'No such file in ' . implode(', ', $this->folders));
        }

        return is_file($file) ? $file : throw new TemplateError($template, "$file is no regular file");
    }

    /**
     * The result of a call during which files are looked for in the folders.
     *
     * @template T
     * @param Closure(): T $call
     * @return T
     */
    public function searched(Closure $call): mixed
    {
        $before = (string) get_include_path();
        set_include_path(implode(PATH_SEPARATOR, $this->folders));
        try {
            return $call();
        } finally {
            set_include_path($before);
        }
    }

    /** A colon belongs to a wrapper or a drive, and Windows drops blanks and dots at the end of a step. */
    private static function staysInside(string $template): bool
    {
        $isPlain = strpbrk($template, "\\:\0") === false;

        return $isPlain && array_all(explode('/', $template), static fn(string $step): bool => rtrim($step, ' .') !== '');
    }

    /** A folder in an archive has no real path and is absolute. */
    private static function absolute(string $folder): string
    {
        $path = realpath($folder) ?: $folder;
        if ($folder === '' || !is_dir($path)) {
            throw new InvalidArgumentException("No such folder: $folder");
        }

        return $path;
    }
}
